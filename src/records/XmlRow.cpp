#include "records/XmlRow.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "platform/text/TextEncoding.h"
#include "records/Record.h"

namespace tarnlog {

namespace {

constexpr std::string_view kStart = "<row";
constexpr std::string_view kBlanks = " \t\r\n";

std::size_t startOf(std::string_view piece) {
  return std::min(piece.find_first_not_of(kBlanks), piece.size());
}

/// The character that a reference without "&" and ";" stands for; 0 when there is none.
char32_t referred(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, char>, 5> kNames = {
      {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
  for (const auto& [known, character] : kNames)
    if (name == known) return static_cast<char32_t>(character);
  if (!name.starts_with('#')) return 0;
  const bool hex = name.starts_with("#x");
  name.remove_prefix(hex ? 2 : 1);
  std::uint32_t code = 0;
  const auto read = std::from_chars(name.data(), name.data() + name.size(), code, hex ? 16 : 10);
  const bool good = read.ec == std::errc() && read.ptr == name.data() + name.size() && code <= 0x10FFFF;
  return good ? code : 0;
}

/// Puts characters in the place of references, which are never shorter. Returns the new end.
char* resolve(char* begin, char* end) {
  char* out = std::find(begin, end, '&');
  for (const char* at = out; at != end;) {
    const char* const semicolon = *at == '&' ? std::find(at, static_cast<const char*>(end), ';') : end;
    const char32_t character =
        semicolon == end ? 0 : referred({at + 1, static_cast<std::size_t>(semicolon - at - 1)});
    if (character == 0) {
      *out++ = *at++;
      continue;
    }
    std::string bytes;
    appendUtf8(bytes, character);
    out = std::copy(bytes.begin(), bytes.end(), out);
    at = semicolon + 1;
  }
  return out;
}

}  // namespace

bool XmlRow::isRow(std::string_view piece) {
  piece.remove_prefix(startOf(piece));
  return piece.starts_with(kStart) && piece.size() > kStart.size() &&
         (kBlanks.find(piece[kStart.size()]) != std::string_view::npos || piece[kStart.size()] == '/' ||
          piece[kStart.size()] == '>');
}

bool XmlRow::read(std::string_view piece) {
  if (isUtf8(piece))
    text_.assign(piece);
  else
    text_ = utf8FromWindows1252(piece);
  time_ = {};
  mark_ = {};
  cells_.clear();
  const std::string_view all = text_;
  for (std::size_t at = startOf(all) + kStart.size();;) {
    at = all.find_first_not_of(kBlanks, at);
    if (at == std::string_view::npos) return false;
    if (all[at] == '/' || all[at] == '>') return time_.begin != nullptr;
    const std::size_t equals = all.find('=', at);
    if (equals == std::string_view::npos || equals + 1 >= all.size()) return false;
    const char quote = all[equals + 1];
    const std::size_t close =
        quote == '"' || quote == '\'' ? all.find(quote, equals + 2) : std::string_view::npos;
    if (close == std::string_view::npos) return false;
    if (!take(all.substr(at, equals - at), &text_[equals + 2], text_.data() + close)) return false;
    at = close + 1;
  }
}

bool XmlRow::take(std::string_view name, char* begin, char* end) {
  end = resolve(begin, end);
  if (name == "Time") {
    time_ = {0, begin, end};
  } else if (name == "Event") {
    mark_ = {begin, static_cast<std::size_t>(end - begin)};
  } else if (name.starts_with('C')) {
    std::size_t column = 0;
    const auto read = std::from_chars(name.data() + 1, name.data() + name.size(), column);
    if (read.ptr != name.data() + name.size() || column < 1 || column > kMostRecordColumns) return false;
    cells_.push_back({column, begin, end});
  }
  return true;
}

}  // namespace tarnlog
