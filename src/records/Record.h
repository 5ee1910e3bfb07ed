#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/ReadableFile.h"
#include "platform/time/Clock.h"

/// What was recorded, whatever the file's format: recordings, each with groups of columns that share their
/// times. Texts are UTF-8, times are seconds from the recording's zero, which is where the file's times count
/// from.
namespace tarnlog {

/// What a number, or those of a range, stand for.
struct RecordLabel {
  double from = 0;
  double till = 0;  ///< included
  std::string text;
};

/// One data item. What the file does not tell is empty.
struct RecordColumn {
  std::string ecu;
  std::string request;
  std::string name;
  std::string unit;
  std::vector<RecordLabel> labels;
  std::optional<std::pair<double, double>> range;  ///< what its numbers can be, lowest first
  bool scaled = false;  ///< its numbers are raw ones times a factor: 15 digits tell all of them
};

/// A file that has more is refused: a table of them would take all memory.
inline constexpr std::size_t kMostRecordColumns = 200'000;

/// Columns whose values were taken at one time. Text and XML records have one group.
struct RecordGroup {
  std::string ecu;
  std::string request;
  std::vector<RecordColumn> columns;
};

/// Name of the fact that tells how well the recording went, as it was counted meanwhile.
inline constexpr char kQualityFact[] = "quality";
/// Name of the fact that holds the configuration as a document.
inline constexpr char kConfigurationFact[] = "configuration";

struct RecordHead {
  std::optional<std::int64_t> utcNanoseconds;  ///< of the zero, since 1970
  std::optional<LocalDateTime> local;          ///< of the zero, to the second, where UTC is not known
  std::vector<std::pair<std::string, std::string>> facts;  ///< name and text: vehicle, VIN, comment, ...
  std::vector<RecordGroup> groups;
  std::string configuration;  ///< the document that it was made with, where the file itself is one
};

struct RecordValue {
  enum class Kind : std::uint8_t { None, Number, Text };
  Kind kind = Kind::None;  ///< none: not available
  double number = 0;
  /// The text; of a number how the file writes it, with ".", empty where it holds the bits of one.
  std::string_view text;
};

/// Texts of a row and of a note stay valid until the consumer returns.
struct RecordRow {
  std::size_t group = 0;
  double time = 0;
  std::string_view timeText;  ///< as `RecordValue::text`
  std::span<const RecordValue> values;
  std::optional<double> requestTime;
  std::optional<std::uint64_t> sequence;
};

struct RecordNote {
  enum class Kind : std::uint8_t { Start, Stop, Event, Gap, Failure, ClockStep };
  Kind kind = Kind::Event;
  double time = 0;
  double till = 0;           ///< end of a gap; seconds of a clock step
  std::uint32_t number = 0;  ///< of an event
  std::string_view text;     ///< a file's name; the reason of a failure
};

/// Hears what a file holds, in the order of the times where the file has it so. A note that belongs to a row
/// of a text or XML record comes before it.
class RecordConsumer {
 public:
  virtual ~RecordConsumer() = default;
  /// What follows is of this one of `RecordReader::recordings`.
  virtual void recording(std::size_t position) = 0;
  virtual void row(const RecordRow& row) = 0;
  virtual void note(const RecordNote& note) = 0;
};

/// Reads a file with an amount of memory that does not grow with its length.
class RecordReader {
 public:
  virtual ~RecordReader() = default;
  const std::vector<RecordHead>& recordings() const { return recordings_; }
  /// Everything that is whole. Raises a TarnError when the file cannot be read on.
  virtual void read(RecordConsumer& consumer) = 0;
  /// After `read`, when the file has grown: what it holds now behind all that was told; `missing` is of the
  /// whole file. False when that cannot be told so: a new reader reads all of it then.
  virtual bool readOn(RecordConsumer& /*consumer*/) { return false; }
  /// After `read`: what the file lacks and what was passed over, a sentence for each matter.
  const std::vector<std::string>& missing() const { return missing_; }
  /// After `read`: the file has no end yet, so more may be written to it.
  virtual bool isOpenEnded() const { return false; }

 protected:
  std::vector<RecordHead> recordings_;
  std::vector<std::string> missing_;
};

/// The reader for a text or XML record or event file, or an MDF 4 file. `name` is that of the file, which may
/// tell when it began. Raises a TarnError that says what was expected when it is none of these, or is not
/// whole enough to tell its columns. The file must outlive the reader.
std::unique_ptr<RecordReader> openRecord(const ReadableFile& file, const std::string& name);

}  // namespace tarnlog
