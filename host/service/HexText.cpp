#include "host/service/HexText.h"

#include <algorithm>

namespace tarnlog::host {
namespace {

int digitValue(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  return -1;
}

}  // namespace

void appendHex(std::string& out, std::span<const std::uint8_t> bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  bool first = true;
  for (const std::uint8_t byte : bytes) {
    if (!first) out += ' ';
    first = false;
    out += kDigits[byte >> 4];
    out += kDigits[byte & 0x0F];
  }
}

std::string hexText(std::span<const std::uint8_t> bytes) {
  std::string text;
  appendHex(text, bytes);
  return text;
}

std::string shortHexText(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kShown = 16;
  return hexText(bytes.first(std::min(bytes.size(), kShown))) + (bytes.size() > kShown ? " ..." : "");
}

std::optional<std::vector<std::uint8_t>> bytesFromHex(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] == ' ') {
      ++at;
      continue;
    }
    const int high = digitValue(text[at]);
    const int low = at + 1 < text.size() ? digitValue(text[at + 1]) : -1;
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    at += 2;
  }
  return bytes;
}

}  // namespace tarnlog::host
