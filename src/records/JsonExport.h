#pragma once

#include <string>
#include <vector>

#include "records/Record.h"
#include "records/RecordTexts.h"

namespace tarnlog {

/// Writes a record as JSON lines: "begin" with the data of a recording, then a "row" (of a text or XML
/// record) or an "answer" (of a request) for each sample, marks, gaps and the like in between, "end". "time"
/// is in seconds; "t" is in nanoseconds UTC where UTC is known, or wanted. What is not available is null.
class JsonExport : public RecordConsumer {
 public:
  JsonExport(const std::vector<RecordHead>& recordings, ExportChoice choice, ExportOutput output);

  void recording(std::size_t position) override;
  void row(const RecordRow& row) override;
  void note(const RecordNote& note) override;
  /// "end" of the last recording, with what is missing.
  void finish(const std::vector<std::string>& missing);

 private:
  void begin(const char* type, double time, std::string_view timeText);
  void appendHead(const RecordHead& head);
  void appendValues(const RecordRow& row);
  void endLine();
  const RecordHead& head() const { return recordings_[recording_]; }

  const std::vector<RecordHead>& recordings_;
  ExportChoice choice_;
  ExportOutput output_;
  std::size_t recording_ = 0;
  std::vector<std::vector<std::string>> names_;  ///< by group and column; empty where not wanted
  std::string out_;
};

}  // namespace tarnlog
