#include "platform/xml/XmlDecoding.h"

#include <algorithm>
#include <cstdint>

#include "platform/text/TextEncoding.h"

namespace tarnlog {
namespace {

bool isHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// `bytes` without the mark; an odd last byte is left out.
std::string utf8FromUtf16(std::string_view bytes, bool bigEndian) {
  const auto unitAt = [&](std::size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<std::uint32_t>(bigEndian ? first << 8 | second : second << 8 | first);
  };
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const std::uint32_t unit = unitAt(at);
    if (isHighSurrogate(unit) && at + 3 < bytes.size() && isLowSurrogate(unitAt(at + 2))) {
      at += 2;
      appendUtf8(text, 0x10000 + ((unit - 0xD800) << 10) + (unitAt(at) - 0xDC00));
    } else {
      appendUtf8(text, isHighSurrogate(unit) || isLowSurrogate(unit) ? 0xFFFD : unit);
    }
  }
  return text;
}

/// The encoding that the XML declaration names, in lower case; empty when it names none.
std::string declaredEncoding(std::string_view bytes) {
  if (!bytes.starts_with("<?xml")) return {};
  const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
  const std::size_t keyword = declaration.find("encoding");
  if (keyword == std::string_view::npos) return {};
  const std::size_t open = declaration.find_first_of("\"'", keyword);
  if (open == std::string_view::npos) return {};
  const std::size_t close = declaration.find(declaration[open], open + 1);
  if (close == std::string_view::npos) return {};
  std::string name(declaration.substr(open + 1, close - open - 1));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return name;
}

}  // namespace

std::string decodeXml(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return utf8FromUtf16(bytes.substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return utf8FromUtf16(bytes.substr(2), true);
  const bool marked = bytes.starts_with("\xEF\xBB\xBF");
  if (marked) bytes.remove_prefix(3);
  if (!isUtf8(bytes)) return utf8FromWindows1252(bytes);
  const std::string declared = marked ? std::string() : declaredEncoding(bytes);
  if (declared == "windows-1252" || declared == "iso-8859-1") return utf8FromWindows1252(bytes);
  return std::string(bytes);
}

}  // namespace tarnlog
