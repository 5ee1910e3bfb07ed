#include "host/vehicle/obd/Vin.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

namespace tarnlog::host {
namespace {

constexpr std::uint8_t kVehicleInformation = 0x49;
constexpr std::uint8_t kVin = 0x02;
constexpr std::size_t kLength = 17;
/// ISO 3779: no I, O and Q, which look like digits.
constexpr std::string_view kPermitted = "ABCDEFGHJKLMNPRSTUVWXYZ0123456789";

/// The first of five responses is filled up in front, some ECUs fill the end.
std::string withoutPadding(const std::string& text) {
  constexpr std::string_view kPadding("\0 \xFF", 3);
  const std::size_t first = text.find_first_not_of(kPadding);
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kPadding) - first + 1);
}

}  // namespace

std::string vinOf(std::span<const Link::Bytes> responses) {
  constexpr std::size_t kNumber = 2;
  std::map<std::uint8_t, std::string> parts;
  for (const Link::Bytes& response : responses)
    if (response.size() > kNumber && response[0] == kVehicleInformation && response[1] == kVin)
      parts[response[kNumber]].assign(response.begin() + kNumber + 1, response.end());
  std::string text;
  for (const auto& [number, part] : parts) text += part;
  text = withoutPadding(text);
  return text.size() == kLength && text.find_first_not_of(kPermitted) == std::string::npos ? text : "";
}

}  // namespace tarnlog::host
