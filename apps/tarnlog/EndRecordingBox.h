#pragma once

#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>

#include "ui/main/EndQuestion.h"

namespace tarnlog {

/// Asks in a box that waits in no loop of its own, so that the recording goes on below it.
class EndRecordingBox : public EndQuestion {
  Q_DECLARE_TR_FUNCTIONS(EndRecordingBox)
 public:
  void ask(QWidget* parent, std::function<void(bool end)> answer) override;
  void withdraw() override;

 private:
  QPointer<QMessageBox> box_;
};

}  // namespace tarnlog
