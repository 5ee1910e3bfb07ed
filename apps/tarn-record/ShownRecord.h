#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "records/HeldLabels.h"
#include "records/RecordFigures.h"
#include "records/RecordTable.h"

namespace tarnlog::record {

struct ShowOptions {
  std::string input;  ///< a record, an event file or a measurement file
  std::optional<double> from = {};
  std::optional<double> till = {};
  std::vector<std::string> data = {};  ///< see `isCalled`; empty: all
  std::optional<double> above = {};    ///< the level of `ShownDatum::secondsAbove`
};

struct ShownDatum {
  std::string name;
  const TableColumn* column = nullptr;
  RecordFigures figures;
  bool measure = true;                 ///< a mean of its numbers says something
  std::optional<double> secondsAbove;  ///< of a measure, when it was asked for
  std::vector<HeldLabel> labels;       ///< of enumerations, texts and what was both on and off
};

struct ShownRecording {
  const TableRecording* recording = nullptr;
  TimeSpan span;
  std::vector<ShownDatum> data;
  std::string quality;  ///< of the whole recording

  bool shows(const TableMark& mark) const;
  /// Its requests have times of their own.
  bool tellsAnswers() const;
};

/// What `show` tells of a file, without words.
struct ShownRecord {
  std::string format;                        ///< "text", "xml" or "mf4"
  std::shared_ptr<const RecordTable> table;  ///< what is pointed at below
  std::vector<ShownRecording> recordings;
  std::optional<double> above;  ///< as it was asked for
};

/// Raises BadInput or a TarnError when the file cannot be read or lacks data that are asked for.
ShownRecord shownRecord(const ShowOptions& options);

}  // namespace tarnlog::record
