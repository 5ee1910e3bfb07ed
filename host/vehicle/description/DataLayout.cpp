#include "host/vehicle/description/DataLayout.h"

#include <algorithm>
#include <cmath>

#include "platform/text/TextEncoding.h"

namespace tarnlog::host {
namespace {

/// One character from UTF-8, moving `at` behind it; a byte that starts none gives U+FFFD.
std::uint32_t nextCharacter(std::string_view utf8, std::size_t& at) {
  const auto byte = static_cast<std::uint8_t>(utf8[at++]);
  if (byte < 0x80) return byte;
  const int following = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : byte >= 0xC0 ? 1 : 0;
  if (following == 0) return 0xFFFD;
  std::uint32_t character = byte & (0x3FU >> following);
  for (int i = 0; i < following; ++i) {
    if (at >= utf8.size() || (static_cast<std::uint8_t>(utf8[at]) & 0xC0) != 0x80) return 0xFFFD;
    character = (character << 6) | (static_cast<std::uint8_t>(utf8[at++]) & 0x3FU);
  }
  return character;
}

}  // namespace

std::int32_t DataLayout::typeCode() const {
  switch (kind) {
    case DataKind::integer:
      return ferrox3::kInteger;
    case DataKind::real:
      return ferrox3::kDouble;
    case DataKind::text:
      return ferrox3::kString;
    case DataKind::bytes:
      break;
  }
  return ferrox3::kByteArray;
}

bool meansNotAvailable(const DataLayout& layout, std::uint32_t pattern) {
  return std::ranges::any_of(layout.notAvailable, [pattern](const BitPatterns& patterns) {
    return patterns.from <= pattern && pattern <= patterns.to;
  });
}

double scaledNumber(const DataLayout& layout, std::uint32_t pattern) {
  const auto raw = static_cast<double>(rawNumber(layout.field, pattern));
  const double value = raw * layout.factor / layout.divisor + layout.offset;
  return layout.kind == DataKind::integer ? std::nearbyint(value) : value;
}

std::optional<ferrox3::Scaling> scalingOf(const DataLayout& layout) {
  const double factor = layout.factor / layout.divisor;
  const auto whole = [](double number) { return std::nearbyint(number) == number; };
  if (!layout.isNumber()) return std::nullopt;
  if (layout.kind == DataKind::integer && !(whole(factor) && whole(layout.offset))) return std::nullopt;
  return ferrox3::Scaling{factor, layout.offset, layout.field.bits, layout.field.isSigned};
}

std::uint32_t patternOf(const DataLayout& layout, double value) {
  const double raw = std::nearbyint((value - layout.offset) * layout.divisor / layout.factor);
  if (std::isnan(raw)) return layout.notAvailable.empty() ? 0 : layout.notAvailable.front().from;
  const double within = std::clamp(raw, static_cast<double>(layout.field.lowest()),
                                   static_cast<double>(layout.field.highest()));
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(within)) & layout.field.mask();
}

bool findBytes(const DataLayout& layout, std::span<const std::uint8_t> response,
               std::span<const std::uint8_t>& found) {
  if (layout.neededLength() > response.size()) return false;
  const auto rest = response.subspan(layout.firstByte);
  found = layout.byteCount == 0 ? rest : rest.first(layout.byteCount);
  return true;
}

void decodeText(CharacterSet characters, std::span<const std::uint8_t> bytes, std::string& text) {
  auto first = bytes.begin();
  auto last = std::find(first, bytes.end(), std::uint8_t{0});
  while (first != last && *first == ' ') ++first;
  while (first != last && *(last - 1) == ' ') --last;
  text.clear();
  for (; first != last; ++first) {
    const std::uint8_t byte = *first;
    if (byte >= 0x20 && byte < 0x7F) {
      text += static_cast<char>(byte);
    } else if (characters == CharacterSet::latin1 && byte >= 0xA0) {
      appendUtf8(text, byte);
    } else {
      text += '?';
    }
  }
}

std::vector<std::uint8_t> encodeText(CharacterSet characters, std::string_view utf8) {
  const std::uint32_t last = characters == CharacterSet::latin1 ? 0xFF : 0x7E;
  std::vector<std::uint8_t> bytes;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::uint32_t character = nextCharacter(utf8, at);
    bytes.push_back(character <= last ? static_cast<std::uint8_t>(character) : std::uint8_t{'?'});
  }
  return bytes;
}

void encodeNumber(const DataLayout& layout, double value, std::span<std::uint8_t> response) {
  writeBits(layout.field, patternOf(layout, value), response.data());
}

}  // namespace tarnlog::host
