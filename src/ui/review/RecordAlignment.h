#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "ui/review/ReviewScene.h"

/// How records are laid over each other: offsets that bring a moment of one to the same moment of the first.
namespace tarnlog {

struct RecordAlignment {
  enum class On : std::uint8_t { Start, Stop, Event, Clock };
  On on = On::Start;
  std::uint32_t event = 0;  ///< its number
  bool operator==(const RecordAlignment&) const = default;
};

/// Those that both records know, the start of the recording first: without a mark it is the first row.
std::vector<RecordAlignment> alignmentsOf(const TableRecording& first, const TableRecording& other);
/// Seconds to add to the times of `other`; none where one of the two does not know the moment.
std::optional<double> offsetFor(const RecordAlignment& alignment, const TableRecording& first,
                                const TableRecording& other);

}  // namespace tarnlog
