#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/link/Link.h"

/// What went over a link, as a text file that people can read and a replay can answer from.
///
///     # tarnlog trace 1
///     0.000000 > 18 KWP2000 21 80
///     0.021344 < 61 80 00 12
///     # 0.030100 adapter < NO DATA
///     0.040000 > 40 UDS 22 00 02
///     0.041200 x the ECU cannot be reached
///     0.050000 > 18 KWP2000 21 80
///     0.050100 > 41 UDS 22 00 02
///     0.061000 <18 KWP2000 61 80 00 12
///     0.062000 < 62 00 02 01
///     5.400021 ! the adapter is gone
///
/// Each line: seconds since the link was opened first, a sign, and what it says: ">" a request with the ECU's
/// address (decimal), its protocol ("-" for none) and bytes, "<" a response, "x" that the request did not
/// reach its ECU, "!" a failure of the link. A response is that to the request before it, unless the address
/// and the protocol of another ECU stand right behind the sign, and so is "x". Lines that begin with "#" are
/// remarks; one names the version, others tell what an adapter that is spoken to in text was sent (">") and
/// said ("<").
namespace tarnlog::host {

struct TraceEntry {
  enum class Kind : std::uint8_t { request, response, unreachable, failure };

  std::chrono::microseconds time{};
  Kind kind = Kind::request;
  LinkTarget target;     ///< who was asked, answers, or was not reached
  bool ofNewest = true;  ///< it belongs to the request before it
  Link::Bytes bytes;     ///< of a request or response
  std::string text;      ///< of a failure, or why an ECU was not reached
};

inline constexpr std::string_view kTraceHeading = "# tarnlog trace 1";

/// One line, without its end.
std::string traceLine(const TraceEntry& entry);
/// A line of what an adapter was sent or said, without its end.
std::string traceRemark(std::chrono::microseconds time, bool sent, std::string_view text);

/// Reads a whole file. A line that ends where the file ends, without a line end, was cut off and is left out.
/// TarnError with file, line and what was expected there; also for a file of another version or without a
/// single entry.
std::vector<TraceEntry> parseTrace(std::string_view text, const std::string& file);

}  // namespace tarnlog::host
