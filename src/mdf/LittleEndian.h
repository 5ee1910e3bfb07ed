#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace tarnlog::mdf {

static_assert(std::endian::native == std::endian::little, "fields are copied as they lie in memory");

/// Writes a number or an enumerator; returns the byte behind it.
template <class T>
char* put(char* to, T value) {
  static_assert(std::is_arithmetic_v<T> || std::is_enum_v<T>);
  std::memcpy(to, &value, sizeof value);
  return to + sizeof value;
}

template <class T>
T get(const char* from) {
  static_assert(std::is_arithmetic_v<T> || std::is_enum_v<T>);
  T value;
  std::memcpy(&value, from, sizeof value);
  return value;
}

}  // namespace tarnlog::mdf
