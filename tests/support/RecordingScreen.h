#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "acquisition/AcqScreen.h"
#include "acquisition/AcqWords.h"

namespace tarnlog::test {

/// An acquisition screen that keeps what it was told, in the system's words.
class RecordingScreen : public AcqScreen {
 public:
  struct ValueRow {
    std::string text;
    std::string unit;
    std::string value;
    int written = 0;
  };

  std::vector<RecordingFact> recording;  ///< in turn
  std::vector<bool> writeFailing;        ///< in turn
  std::string state;
  std::string eventCaption;
  std::string recordPanel;
  std::string timePanel;
  std::vector<std::string> log;
  std::vector<ValueRow> rows;
  int columnRebuilds = 0;
  int beeps = 0;
  GraphArea* area = nullptr;

  void setState(AcquisitionState acquisition) override { state = words::of(acquisition).caption; }
  void setRecording(RecordingFact fact) override { recording.push_back(fact); }
  void setRecordPath(std::string_view path) override { recordPanel = words::recordText(path); }
  void setElapsed(std::int64_t milliseconds) override { timePanel = words::elapsedText(milliseconds, '.'); }
  void setEventNumber(std::int32_t number) override { eventCaption = words::eventCaption(number); }
  void setOpenFailure(OpenFailure failure, std::string_view reason) override {
    recordPanel = words::openFailureText(failure, reason);
  }
  void setWriteFailing(bool failing) override { writeFailing.push_back(failing); }
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

  /// The log, or so many of its newest lines, without the times of day.
  std::vector<std::string> logTexts(std::size_t newest = SIZE_MAX) const {
    std::vector<std::string> texts;
    for (std::size_t i = log.size() - std::min(newest, log.size()); i < log.size(); ++i)
      texts.push_back(log[i].substr(std::string("19:05:07 ").size()));
    return texts;
  }
};

}  // namespace tarnlog::test
