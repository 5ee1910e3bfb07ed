#pragma once

#include "acquisition/AcqScreen.h"

namespace tarnlog {

/// An acquisition screen that shows nothing; a base for those that show a part.
class SilentAcqScreen : public AcqScreen {
 public:
  void setRecordingCaption(std::string_view) override {}
  void setRecordingColour(Colour) override {}
  void setWriteFailing(bool) override {}
  void setStateIndicator(std::string_view, Colour) override {}
  void setStartStopCaption(std::string_view) override {}
  void setEventCaption(std::string_view) override {}
  void setPanelText(StatusPanel, std::string_view) override {}
  void clearLog() override {}
  void removeLogLine(int) override {}
  void appendLogLine(std::string_view) override {}
  void rebuildValueColumns() override {}
  void clearValueRows() override {}
  void addValueRow(std::string_view, std::string_view) override {}
  void setValueText(int, std::string_view) override {}
  GraphArea* graphArea() override { return nullptr; }
  void focusStartStop() override {}
  void beep() override {}
};

}  // namespace tarnlog
