#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/SampleSink.h"
#include "mdf/Mdf.h"
#include "platform/ferrox3/Session.h"
#include "platform/files/FileSystem.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// Something that happened at a moment or, with `till`, from one moment to another. Microseconds from the
/// file's start.
struct MdfEvent {
  mdf::EventKind kind = mdf::EventKind::Marker;
  mdf::EventCause cause = mdf::EventCause::Tool;
  std::int64_t at = 0;
  std::optional<std::int64_t> till{};
  std::string name;
  std::string comment{};
};

MdfEvent markEvent(SampleMark::Kind kind, std::int64_t at, std::int64_t number, std::string_view file);
MdfEvent gapEvent(std::int64_t at, std::int64_t till);
MdfEvent clockStepEvent(std::int64_t at, double seconds);

/// How good a recording was.
struct QualityReport {
  std::string line;
  std::vector<ferrox3::Fact> figures;
};

/// What makes a finished file of an unfinished one.
struct MdfClosing {
  struct Count {
    std::uint64_t group = 0;  ///< place of the CG
    std::uint64_t records = 0;
    std::optional<std::uint64_t> valueBytes{};  ///< of values of variable length, without their lengths
  };
  std::uint64_t data = 0;       ///< place of the DT
  std::uint64_t dataBytes = 0;  ///< of its records; the file ends behind them
  std::vector<Count> counts;
  std::vector<MdfEvent> events;
  std::uint64_t history = 0;  ///< place of the FH that the quality's follows
  std::optional<QualityReport> quality{};
  std::int64_t utcNanoseconds = 0;  ///< now
  ZoneOffset zone{};
};

/// Closes a file. Whenever the power goes while it does, what is on the disk is a file that tells truly what
/// it lacks. Raises what the stream raises; the file stays unfinished then, but whole.
void closeMdf(FileStream& stream, const MdfClosing& closing);

}  // namespace tarnlog
