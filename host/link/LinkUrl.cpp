#include "host/link/LinkUrl.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
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

}  // namespace

LinkUrl::LinkUrl(std::string_view text) : text_(text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0)
    expected("beginning", "a kind of link and a colon, like elm327: or replay:", text);
  scheme_ = text.substr(0, colon);
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
