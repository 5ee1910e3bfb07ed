#pragma once

#include "acquisition/AcqScreen.h"

namespace tarnlog {

/// An acquisition screen that shows nothing; a base for those that show a part.
class SilentAcqScreen : public AcqScreen {
 public:
  void setState(AcquisitionState) override {}
  void setRecording(RecordingFact) override {}
  void setRecordPath(std::string_view) override {}
  void setElapsed(std::int64_t) override {}
  void setEventNumber(std::int32_t) override {}
  void setOpenFailure(OpenFailure, std::string_view) override {}
  void setWriteFailing(bool) override {}
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
