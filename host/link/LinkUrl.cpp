#include "host/link/LinkUrl.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "platform/base/TarnError.h"
#include "platform/text/TakeUntil.h"

namespace tarnlog::host {
namespace {

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal) text.remove_prefix(2);
  std::int64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, number, hexadecimal ? 16 : 10);
  if (error != std::errc() || read != end) return std::nullopt;
  return number;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string lowerCase(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return out;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? ""
                                         : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// "192.168.0.10", "adapter:35000", "[fe80::1]:35000": nothing else is written like these.
bool isPlace(std::string_view text) {
  constexpr std::array<std::string_view, 4> kKinds{"elm327", "doip", "isotp", "replay"};
  text = text.substr(0, text.find_first_of("/?"));
  if (text.starts_with('[')) return true;
  std::string_view port = text;
  const std::string_view host = takeUntil(port, ':');
  if (port.empty())
    return std::count(host.begin(), host.end(), '.') == 3 &&
           host.find_first_not_of("0123456789.") == std::string_view::npos;
  const bool isKind = std::find(kKinds.begin(), kKinds.end(), lowerCase(host)) != kKinds.end();
  return !isKind && !host.empty() && std::all_of(port.begin(), port.end(), isDigit);
}

/// COM3, or COM3: with a colon behind it.
bool isWindowsPort(std::string_view text) {
  if (text.ends_with(':')) text.remove_suffix(1);
  const std::string name = lowerCase(text.substr(text.find_last_of("\\/:") + 1));
  return text.find("/dev/") == std::string_view::npos && name.size() > 3 && name.size() < 7 &&
         name.starts_with("com") && std::all_of(name.begin() + 3, name.end(), isDigit);
}

/// With the kind of link that people leave out.
std::string whole(std::string_view text) {
  text = trimmed(text);
  return (text.starts_with("/dev/") || isPlace(text) ? "elm327://" : "") + std::string(text);
}

}  // namespace

LinkUrl::LinkUrl(std::string_view typed) : text_(whole(typed)) {
  const std::string_view text = text_;
  if (isWindowsPort(text.substr(0, text.find('?'))))
    expected("port", "a name like /dev/ttyUSB0 or /dev/rfcomm0, as this is no Windows", text);
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0)
    expected("beginning", "a kind of link and a colon, like elm327: or replay:", text);
  scheme_ = lowerCase(text.substr(0, colon));
  std::string_view rest = text.substr(colon + 1);
  std::string_view place = takeUntil(rest, '?');
  if (place.starts_with("//")) {
    place.remove_prefix(2);
    const std::size_t slash = std::min(place.find('/'), place.size());
    readAuthority(place.substr(0, slash));
    place.remove_prefix(slash);
  }
  path_ = place;
  readOptions(rest);
}

void LinkUrl::readAuthority(std::string_view text) {
  const std::size_t bracket = text.starts_with('[') ? text.find(']') : std::string_view::npos;
  const std::size_t colon = text.find(':', bracket == std::string_view::npos ? 0 : bracket);
  if (colon != std::string_view::npos) {
    const auto port = text.substr(colon + 1);
    const auto number = wholeNumber(port);
    if (!number || *number < 1 || *number > 65535) expected("port", "a number from 1 to 65535", port);
    port_ = static_cast<std::uint16_t>(*number);
  }
  host_ = bracket == std::string_view::npos ? text.substr(0, colon) : text.substr(1, bracket - 1);
}

void LinkUrl::readOptions(std::string_view text) {
  while (!text.empty()) {
    std::string_view value = takeUntil(text, '&');
    const std::string_view name = takeUntil(value, '=');
    if (option(name) != nullptr) expected(name, "this option once", value);
    options_.emplace_back(name, value);
  }
}

void LinkUrl::allowOptions(std::initializer_list<std::string_view> names) const {
  for (const auto& [name, value] : options_)
    if (std::find(names.begin(), names.end(), name) == names.end())
      expected("options", fmt::format("{}", fmt::join(names, ", ")), name);
}

const std::string* LinkUrl::option(std::string_view name) const {
  const auto found =
      std::find_if(options_.begin(), options_.end(), [&](const auto& each) { return each.first == name; });
  return found == options_.end() ? nullptr : &found->second;
}

std::optional<std::int64_t> LinkUrl::numberOption(std::string_view name, std::int64_t lowest,
                                                  std::int64_t highest) const {
  const std::string* const text = option(name);
  if (text == nullptr) return std::nullopt;
  const auto number = wholeNumber(*text);
  if (!number || *number < lowest || *number > highest)
    expected(name, fmt::format("a number from {} to {}", lowest, highest), *text);
  return number;
}

void LinkUrl::expected(std::string_view place, std::string_view what, std::string_view found) const {
  throw TarnError(1, "LinkUrl",
                  fmt::format("link {}: {}: expected {}, found {}", text_, place, what,
                              found.empty() ? "nothing" : fmt::format("\"{}\"", found)));
}

}  // namespace tarnlog::host
