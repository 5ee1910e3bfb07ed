#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/vehicle/description/BitField.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

enum class DataKind : std::uint8_t { integer, real, text, bytes };
enum class CharacterSet : std::uint8_t { ascii, latin1 };

/// Bits as an unsigned number, from one to another, both included.
struct BitPatterns {
  std::uint32_t from = 0;
  std::uint32_t to = 0;

  bool operator==(const BitPatterns&) const = default;
};

/// How a data item stands in a response, and how its bits become a value. Integers and reals use the number
/// fields, text and bytes the byte range.
struct DataLayout {
  DataKind kind = DataKind::integer;

  BitField field;
  double factor = 1;  ///< value = raw * factor / divisor + offset
  double divisor = 1;
  double offset = 0;
  std::vector<BitPatterns> notAvailable;  ///< what means "no value"

  std::uint16_t firstByte = 0;
  std::uint16_t byteCount = 0;  ///< 0: up to the end of the response
  CharacterSet characters = CharacterSet::ascii;

  bool isNumber() const { return kind == DataKind::integer || kind == DataKind::real; }
  /// Bytes that a response must have to hold the item.
  std::size_t neededLength() const {
    return isNumber() ? std::size_t{field.byte} + field.bytes : std::size_t{firstByte} + byteCount;
  }
  std::int32_t typeCode() const;

  bool operator==(const DataLayout&) const = default;
};

bool meansNotAvailable(const DataLayout& layout, std::uint32_t pattern);
/// The scaled number; integers are rounded, halves to even.
double scaledNumber(const DataLayout& layout, std::uint32_t pattern);
/// Where the value is always raw * factor + offset: not where an integer is rounded.
std::optional<ferrox3::Scaling> scalingOf(const DataLayout& layout);
/// The bits nearest to a value, within what they can express. NaN gives the first "not available" pattern, or
/// zero.
std::uint32_t patternOf(const DataLayout& layout, double value);

/// The bytes of a text or bytes item; false when the response ends before the item does.
bool findBytes(const DataLayout& layout, std::span<const std::uint8_t> response,
               std::span<const std::uint8_t>& found);
/// UTF-8 text up to the first zero byte, without the blanks around it; "?" for what is no printable
/// character. Reuses `text`'s memory.
void decodeText(CharacterSet characters, std::span<const std::uint8_t> bytes, std::string& text);
/// The bytes of a text, "?" for a character that the set does not have.
std::vector<std::uint8_t> encodeText(CharacterSet characters, std::string_view utf8);

/// Puts a number into a response that is long enough.
void encodeNumber(const DataLayout& layout, double value, std::span<std::uint8_t> response);

}  // namespace tarnlog::host
