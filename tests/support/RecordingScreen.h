#pragma once

#include <string>
#include <vector>

#include "acquisition/AcqScreen.h"

namespace tarnlog::test {

/// An acquisition screen that keeps what it was told.
class RecordingScreen : public AcqScreen {
 public:
  struct ValueRow {
    std::string text;
    std::string unit;
    std::string value;
    int written = 0;
  };

  std::string recordingCaption;
  std::vector<Colour> recordingColours;  ///< every colour in turn
  std::vector<bool> writeFailing;        ///< in turn
  std::string state;
  Colour stateColour = 0;
  std::string startStopCaption;
  std::string eventCaption;
  std::string recordPanel;
  std::string timePanel;
  std::vector<std::string> log;
  std::vector<ValueRow> rows;
  int columnRebuilds = 0;
  int beeps = 0;
  GraphArea* area = nullptr;

  void setRecordingCaption(std::string_view caption) override { recordingCaption = caption; }
  void setRecordingColour(Colour colour) override { recordingColours.push_back(colour); }
  void setWriteFailing(bool failing) override { writeFailing.push_back(failing); }
  void setStateIndicator(std::string_view caption, Colour colour) override {
    state = caption;
    stateColour = colour;
  }
  void setStartStopCaption(std::string_view caption) override { startStopCaption = caption; }
  void setEventCaption(std::string_view caption) override { eventCaption = caption; }
  void setPanelText(StatusPanel panel, std::string_view text) override {
    (panel == StatusPanel::Record ? recordPanel : timePanel) = text;
  }
  void clearLog() override { log.clear(); }
  void removeLogLine(int position) override { log.erase(log.begin() + position); }
  void appendLogLine(std::string_view line) override { log.emplace_back(line); }
  void rebuildValueColumns() override { ++columnRebuilds; }
  void clearValueRows() override { rows.clear(); }
  void addValueRow(std::string_view text, std::string_view unit) override {
    rows.push_back({std::string(text), std::string(unit), "", 0});
  }
  void setValueText(int row, std::string_view text) override {
    ValueRow& target = rows.at(static_cast<std::size_t>(row) - 1);
    target.value = text;
    ++target.written;
  }
  GraphArea* graphArea() override { return area; }
  void focusStartStop() override {}
  void beep() override { ++beeps; }

  /// The log without the times of day.
  std::vector<std::string> logTexts() const {
    std::vector<std::string> texts;
    for (const std::string& line : log) texts.push_back(line.substr(std::string("19:05:07 ").size()));
    return texts;
  }
};

}  // namespace tarnlog::test
