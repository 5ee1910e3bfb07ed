#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "acquisition/SampleSink.h"
#include "mdf/Mdf.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// A channel of a measurement file.
struct MdfColumn {
  enum class Kind : std::uint8_t {
    Time,  ///< seconds from the file's start
    Unsigned,
    Signed,
    Number,  ///< f64
    Text,
    Bytes,
  };
  std::string name;
  Kind kind = Kind::Number;
  std::size_t bytes = 8;  ///< of its cell in a record
  std::string unit{};
  std::size_t at = 0;                              ///< place of the cell
  std::optional<std::uint32_t> invalidationBit{};  ///< its number, where values can be "not available"
  std::optional<ferrox3::Scaling> scaling{};       ///< none: the number itself
  std::vector<std::pair<double, std::string>> labels{};
  std::optional<std::pair<double, double>> range{};  ///< of the number in the cell
  std::uint64_t valueId = 0;                         ///< record id of the values of variable length
  std::size_t valueGroup = 0;                        ///< position among all groups of such values

  bool variable() const { return kind == Kind::Text || kind == Kind::Bytes; }
};

/// A channel group; its first channel is the time.
struct MdfGroup {
  std::string name;
  std::string ecu{};
  std::string ecuFunction{};
  std::vector<MdfColumn> columns{};
  std::uint64_t id = 0;
  std::size_t dataBytes = 0;
  std::size_t invalidationBytes = 0;
  std::vector<std::size_t> times{};      ///< positions of the columns that are times
  std::vector<std::size_t> variables{};  ///< and of those whose values have variable length

  std::size_t recordBytes() const { return dataBytes + invalidationBytes; }
};

/// The channel groups of an acquisition: one for each request, in their order, and then those below.
struct MdfLayout {
  enum Own : std::uint8_t { kMarks, kGaps, kFailures, kClockSteps };
  static constexpr std::size_t kFirstItem = 3;  ///< column of a request's group: time, request time, sequence

  std::vector<MdfGroup> groups;
  std::size_t requests = 0;
  std::size_t valueGroups = 0;
  std::size_t idBytes = 1;

  std::size_t own(Own group) const { return requests + group; }
};

/// Names by which a file that was not finished is understood.
namespace mdfnames {
inline constexpr char kMarks[] = "Marks";
inline constexpr char kGaps[] = "Gaps";
inline constexpr char kFailures[] = "Failures";
inline constexpr char kClockSteps[] = "Clock steps";
}  // namespace mdfnames

MdfLayout mdfLayout(const SampleBeginning& beginning);
/// These groups, in which cells have no place yet, and those that are no request's.
MdfLayout mdfLayout(std::vector<MdfGroup> groups);

/// The first columns of a request's group, and of any other.
std::vector<MdfColumn> mdfRequestColumns();
MdfColumn mdfTimeColumn(const char* name = "time");

}  // namespace tarnlog
