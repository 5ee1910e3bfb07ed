#include "apps/common/RepeatedLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <utility>

#include "platform/text/Told.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kWhile = 5000;     // ms
constexpr std::size_t kLongestRound = 8;  // lines

/// "19:05:07 Send error" is "Send error".
std::string_view withoutTimeOfDay(std::string_view line) {
  constexpr std::string_view kForm = "00:00:00 ";
  const auto fits = [](char form, char c) {
    return form == '0' ? std::isdigit(static_cast<unsigned char>(c)) != 0 : form == c;
  };
  const bool timed =
      line.size() >= kForm.size() && std::equal(kForm.begin(), kForm.end(), line.begin(), fits);
  return timed ? line.substr(kForm.size()) : line;
}

}  // namespace

void RepeatedLines::add(std::string_view line) {
  const std::string_view text = withoutTimeOfDay(line);
  const auto seen =
      std::find_if(seen_.begin(), seen_.end(), [&](const Seen& each) { return each.text == text; });
  if (seen != seen_.end()) {
    seen->last = line;
    ++seen->counted;
    if (!recent(*seen)) tell(*seen);
    return;
  }
  tellAll();
  print_(line);
  if (seen_.size() == kLongestRound) seen_.erase(seen_.begin());
  seen_.push_back({std::string(text), {}, clock_.milliseconds()});
}

void RepeatedLines::tellOverdue() {
  for (Seen& seen : seen_)
    if (!recent(seen)) tell(seen);
}

void RepeatedLines::tellAll() {
  for (Seen& seen : seen_) tell(seen);
}

bool RepeatedLines::recent(const Seen& seen) const {
  return millisecondsBetween(seen.printed, clock_.milliseconds()) < kWhile;
}

void RepeatedLines::tell(Seen& seen) {
  const std::size_t count = std::exchange(seen.counted, 0);
  if (count == 0) return;
  seen.printed = clock_.milliseconds();
  print_(count == 1 ? seen.last : Told::tr("{} ({} times)", seen.last, count));
}

}  // namespace tarnlog
