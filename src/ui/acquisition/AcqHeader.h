#pragma once

#include <QCoreApplication>
#include <QRect>
#include <cstdint>

#include "acquisition/AcqScreen.h"

class QWidget;

namespace tarnlog {

class GreyableButton;
class Indicator;
class LogList;

/// The upper part of the acquisition view: indicators and buttons at the left, the log beside them. The
/// widgets are children of the view.
class AcqHeader {
  Q_DECLARE_TR_FUNCTIONS(AcqHeader)
 public:
  static constexpr int kSpacing = 6;  ///< pixels between controls

  explicit AcqHeader(QWidget& view);

  void setState(AcquisitionState state);
  void setRecording(RecordingFact fact);
  void setWriteFailing(bool failing);
  void setEventNumber(std::int32_t number);
  /// While an event goes on, its button looks as it acts.
  void setEventProgress(EventProgress progress);

  /// Buttons that act look so.
  void setButtonsAct(bool act);

  GreyableButton& startStop() { return *commandStartStop_; }
  GreyableButton& event() { return *eventBouton_; }
  LogList& log() { return *log_; }

  /// Of a view in which the header and some values can be read.
  QSize leastViewSize() const;
  /// At the top of this area. Returns where it ends.
  int place(const QRect& area);

 private:
  void showMeaning();
  void showEvent();
  QString whyNoEvent() const;

  Indicator* lblRec_;
  Indicator* lblDiag_;
  GreyableButton* commandStartStop_;
  GreyableButton* eventBouton_;
  LogList* log_;
  RecordingFact recording_ = RecordingFact::Off;
  bool writeFailing_ = false;
  bool buttonsAct_ = false;
  EventProgress event_;
};

}  // namespace tarnlog
