#include "records/RecordTexts.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>

#include "platform/text/Numbers.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

constexpr double kNanoseconds = 1e9;
constexpr double kLongest = 9e18;  ///< nanoseconds that 64 bits hold

void appendPadded(std::string& out, std::int64_t number, std::size_t digits) {
  char text[24];
  char* const end = std::to_chars(text, text + sizeof text, number).ptr;
  const auto length = static_cast<std::size_t>(end - text);
  if (length < digits) out.append(digits - length, '0');
  out.append(text, length);
}

}  // namespace

bool ExportChoice::takes(const RecordColumn& column) const {
  return data.empty() || std::any_of(data.begin(), data.end(),
                                     [&](const std::string& name) { return isCalled(column, name); });
}

void appendRecordNumber(std::string& out, const RecordValue& value, bool scaled) {
  if (!value.text.empty())
    out.append(value.text);
  else if (scaled || !std::isfinite(value.number))
    appendNumber(out, value.number, '.');
  else
    out.append(exactNumberText(value.number));
}

void appendRecordTime(std::string& out, double time, std::string_view text) {
  if (text.empty())
    appendNumber(out, time, '.');
  else
    out.append(text);
}

void appendIsoTime(std::string& out, std::int64_t utcNanoseconds) {
  using namespace std::chrono;
  const sys_time<microseconds> time{microseconds(divideHalfEven(utcNanoseconds, 1000))};
  const sys_days day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  appendPadded(out, static_cast<int>(date.year()), 4);
  out += '-';
  appendPadded(out, static_cast<unsigned>(date.month()), 2);
  out += '-';
  appendPadded(out, static_cast<unsigned>(date.day()), 2);
  out += 'T';
  appendPadded(out, clock.hours().count(), 2);
  out += ':';
  appendPadded(out, clock.minutes().count(), 2);
  out += ':';
  appendPadded(out, clock.seconds().count(), 2);
  out += '.';
  appendPadded(out, clock.subseconds().count(), 6);
  out += 'Z';
}

std::int64_t utcOf(const RecordHead& head, double time) {
  const double nanoseconds = std::clamp(time * kNanoseconds, -kLongest, kLongest);
  std::int64_t sum = 0;
  if (__builtin_add_overflow(head.utcNanoseconds.value_or(0), std::llround(nanoseconds), &sum)) return 0;
  return sum;
}

}  // namespace tarnlog
