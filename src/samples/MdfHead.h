#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/SampleSink.h"
#include "platform/ferrox3/Session.h"
#include "platform/time/Clock.h"
#include "samples/MdfLayout.h"

namespace tarnlog {

/// The program, as the first bytes of a file name it.
inline constexpr std::string_view kMdfProgram = "tarnlog ";

/// What is told of a file as a whole.
struct MdfAbout {
  std::int64_t start = 0;  ///< the file's times count from here, microseconds
  std::int64_t utcNanoseconds = 0;
  std::optional<ZoneOffset> zone;  ///< none: not known
  std::string programVersion;
  std::vector<ferrox3::Fact> facts;
};

/// A channel group in a file.
struct MdfGroupPlace {
  std::uint64_t place = 0;
  std::uint64_t id = 0;
  bool values = false;  ///< it holds values of variable length
};

/// Everything that stands before the records.
struct MdfHead {
  std::string bytes;
  std::vector<MdfGroupPlace> groups;  ///< in the order of their ids, which are 1, 2, ...
  std::uint64_t history = 0;          ///< place of the FH
  std::uint64_t data = 0;             ///< place of the DT
};

MdfHead mdfHead(const MdfLayout& layout, const MdfAbout& about);

/// An MD of such an element: its text, and what is known besides.
std::string mdfComment(const std::string& element, const std::string& text,
                       const std::vector<ferrox3::Fact>& facts, const std::string& afterText = {});
/// The data of an FH of this moment.
std::string mdfHistoryData(std::int64_t utcNanoseconds, const std::optional<ZoneOffset>& zone);

/// The whole configuration as a document.
std::string configurationText(const oTarnParameters& parameters);

}  // namespace tarnlog
