#pragma once

#include <cstddef>
#include <cstdint>

namespace tarnlog::host {

enum class ByteOrder : std::uint8_t { big, little };

/// Where a number stands in a response: 1 to 4 bytes read as one number, of which `bits` bits from `bit` (0 =
/// least significant) upwards are taken.
struct BitField {
  std::uint16_t byte = 0;  ///< position of the first byte, 0 = the response's service id
  std::uint8_t bytes = 1;
  std::uint8_t bit = 0;
  std::uint8_t bits = 8;
  ByteOrder order = ByteOrder::big;
  bool isSigned = false;

  constexpr bool isWithin(std::size_t length) const { return std::size_t{byte} + bytes <= length; }
  constexpr std::uint32_t mask() const { return static_cast<std::uint32_t>((std::uint64_t{1} << bits) - 1); }
  constexpr std::int64_t lowest() const { return isSigned ? -(std::int64_t{1} << (bits - 1)) : 0; }
  constexpr std::int64_t highest() const {
    return isSigned ? (std::int64_t{1} << (bits - 1)) - 1 : std::int64_t{mask()};
  }
  /// Distance in bits of byte `index` (0 = first) from the least significant end.
  constexpr unsigned shiftOf(unsigned index) const {
    return 8U * (order == ByteOrder::big ? bytes - 1U - index : index);
  }

  bool operator==(const BitField&) const = default;
};

/// The bits as an unsigned number. The field must lie within the response.
constexpr std::uint32_t readBits(const BitField& field, const std::uint8_t* response) {
  std::uint32_t word = 0;
  for (unsigned i = 0; i < field.bytes; ++i)
    word |= static_cast<std::uint32_t>(response[field.byte + i]) << field.shiftOf(i);
  return (word >> field.bit) & field.mask();
}

/// The number that these bits stand for.
constexpr std::int64_t rawNumber(const BitField& field, std::uint32_t pattern) {
  const bool negative = field.isSigned && ((pattern >> (field.bits - 1)) & 1U) != 0;
  return negative ? std::int64_t{pattern} - (std::int64_t{1} << field.bits) : std::int64_t{pattern};
}

/// Puts the low bits of `pattern` into the response and leaves the other bits. The field must lie within it.
constexpr void writeBits(const BitField& field, std::uint32_t pattern, std::uint8_t* response) {
  const std::uint32_t mask = field.mask() << field.bit;
  const std::uint32_t word = (pattern << field.bit) & mask;
  for (unsigned i = 0; i < field.bytes; ++i) {
    std::uint8_t& byte = response[field.byte + i];
    const unsigned shift = field.shiftOf(i);
    byte = static_cast<std::uint8_t>((byte & ~(mask >> shift)) | ((word >> shift) & 0xFFU));
  }
}

}  // namespace tarnlog::host
