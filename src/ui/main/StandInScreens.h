#pragma once

#include <QHideEvent>
#include <QPushButton>
#include <QWidget>
#include <memory>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "ui/main/MainEnvironment.h"

/// Empty screens in place of those that are not here yet.
namespace tarnlog {

class StandInScreen : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;
  void setParameters(std::shared_ptr<oTarnParameters> parameters) { parameters_ = std::move(parameters); }
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }

 signals:
  void edited();

 private:
  std::shared_ptr<oTarnParameters> parameters_;
};

class TarnSelect : public StandInScreen {
  Q_OBJECT
 public:
  using StandInScreen::StandInScreen;
  void setXmlSession(std::shared_ptr<const SessionDocument>) {}
};
class AcqView : public QWidget {
  Q_OBJECT
 public:
  explicit AcqView(const MainEnvironment& environment, QWidget* parent)
      : QWidget(parent),
        acq_({screen_, environment.clock, environment.timer, environment.files, environment.locale,
              environment.stylesheetUrl}) {
    auto* const button = new QPushButton(this);
    button->setObjectName("CommandStartStop");
    connect(button, &QPushButton::clicked, this, [this] { acq_.ToggleRecording(); });
  }
  TarnAcq& acq() { return acq_; }

 protected:
  void hideEvent(QHideEvent* event) override {
    if (!event->spontaneous()) acq_.hidden();
  }

 private:
  SilentAcqScreen screen_;
  TarnAcq acq_;
};

}  // namespace tarnlog
