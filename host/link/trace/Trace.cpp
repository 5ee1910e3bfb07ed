#include "host/link/trace/Trace.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <optional>

#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "platform/text/TakeUntil.h"

namespace tarnlog::host {
namespace {

using Kind = TraceEntry::Kind;

template <class Number>
std::optional<Number> number(std::string_view text) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return value;
}

std::optional<std::chrono::microseconds> timeOf(std::string_view word) {
  const auto seconds = number<double>(word);
  if (!seconds || !(*seconds >= 0 && *seconds < 1e9)) return {};
  return std::chrono::microseconds(std::llround(*seconds * 1e6));
}

std::optional<Kind> kindOf(char sign) {
  switch (sign) {
    case '>':
      return Kind::request;
    case '<':
      return Kind::response;
    case 'x':
      return Kind::unreachable;
    case '!':
      return Kind::failure;
    default:
      return {};
  }
}

/// False when the address is none.
bool readTarget(std::string_view address, std::string_view& line, LinkTarget& target) {
  const auto value = number<std::int32_t>(address);
  const std::string_view protocol = takeUntil(line, ' ');
  if (value) target = {*value, protocol == "-" ? std::string() : std::string(protocol)};
  return value.has_value();
}

/// None when it was read, else what was expected.
std::optional<std::string_view> readEntry(std::string_view line, TraceEntry& entry) {
  const auto time = timeOf(takeUntil(line, ' '));
  if (!time) return "seconds";
  entry.time = *time;
  const std::string_view sign = takeUntil(line, ' ');
  const auto kind = sign.empty() ? std::nullopt : kindOf(sign[0]);
  if (!kind) return "one of the signs > < x !";
  entry.kind = *kind;
  const bool named = sign.size() > 1;
  entry.ofNewest = !named && entry.kind != Kind::request;
  if (!entry.ofNewest && !readTarget(named ? sign.substr(1) : takeUntil(line, ' '), line, entry.target))
    return "the ECU's address, a decimal number";
  if (entry.kind == Kind::unreachable || entry.kind == Kind::failure) {
    entry.text = line;
    return {};
  }
  auto bytes = bytesFromHex(line);
  if (!bytes || (entry.kind == Kind::request && bytes->empty()))
    return "bytes as two hexadecimal digits each";
  entry.bytes = std::move(*bytes);
  return {};
}

std::string withoutBlanks(std::string text) {
  for (char& c : text)
    if (c == ' ') c = '_';
  return text.empty() ? "-" : text;
}

std::string onOneLine(std::string text) {
  for (char& c : text)
    if (c == '\n' || c == '\r') c = ' ';
  return text;
}

std::string seconds(std::chrono::microseconds time) {
  return fmt::format("{}.{:06}", time.count() / 1000000, time.count() % 1000000);
}

}  // namespace

std::string traceRemark(std::chrono::microseconds time, bool sent, std::string_view text) {
  return fmt::format("# {} adapter {} {}", seconds(time), sent ? '>' : '<', text);
}

std::string traceLine(const TraceEntry& entry) {
  constexpr std::string_view kSigns = "><x!";  // in the order of the kinds
  std::string line = seconds(entry.time) + ' ' + kSigns[static_cast<std::size_t>(entry.kind)];
  const std::string target =
      fmt::format("{} {} ", entry.target.address, withoutBlanks(entry.target.protocol));
  if (entry.kind == Kind::request)
    line += ' ' + target;
  else
    line += entry.ofNewest ? " " : target;
  if (entry.kind == Kind::unreachable || entry.kind == Kind::failure) return line + onOneLine(entry.text);
  appendHex(line, entry.bytes);
  return line;
}

std::vector<TraceEntry> parseTrace(std::string_view text, const std::string& file) {
  constexpr std::string_view kAnyHeading = kTraceHeading.substr(0, kTraceHeading.rfind(' ') + 1);
  std::vector<TraceEntry> entries;
  LinkTarget newest;
  int lineNumber = 0;
  const auto refuse = [&](std::string_view expected) {
    throw TarnError(1, "parseTrace", fmt::format("{}, line {}: expected {}", file, lineNumber, expected));
  };
  while (text.find('\n') != std::string_view::npos) {
    std::string_view line = takeUntil(text, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    ++lineNumber;
    if (line.starts_with(kAnyHeading) && line != kTraceHeading) refuse(kTraceHeading);
    if (line.empty() || line.starts_with('#')) continue;
    TraceEntry entry;
    if (const auto expected = readEntry(line, entry)) refuse(*expected);
    if (entry.kind == Kind::request) newest = entry.target;
    if (entry.ofNewest) entry.target = newest;
    entries.push_back(std::move(entry));
  }
  ++lineNumber;
  if (entries.empty()) refuse("a request, like \"0.000000 > 18 KWP2000 21 80\"");
  return entries;
}

}  // namespace tarnlog::host
