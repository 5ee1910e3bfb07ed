#include "host/vehicle/session/VehicleRawBuffer.h"

#include <algorithm>

#include "host/service/HexText.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

void VehicleRawBuffer::fill(std::string_view text) {
  auto bytes = bytesFromHex(text);
  if (!bytes)
    throw TarnError(1, "VehicleRawBuffer.fill",
                    "expected bytes of two hexadecimal digits each, found \"" + std::string(text) + "\"");
  bytes_ = std::move(*bytes);
}

std::string VehicleRawBuffer::text() const { return hexText(bytes_); }

void VehicleRawBuffer::setLength(std::size_t bytes) {
  length_ = bytes;
  bytes_.assign(bytes, 0);
}

void VehicleRawBuffer::take(std::span<const std::uint8_t> response) {
  const std::size_t taken = length_ == 0 ? response.size() : std::min(length_, response.size());
  bytes_.assign(response.begin(), response.begin() + static_cast<std::ptrdiff_t>(taken));
}

}  // namespace tarnlog::host
