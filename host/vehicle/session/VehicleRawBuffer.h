#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

class VehicleRawBuffer : public ferrox3::RawBuffer {
 public:
  /// Hexadecimal text; blanks between the bytes are optional.
  void fill(std::string_view text) override;
  std::string text() const override;
  void setLength(std::size_t bytes) override;

  std::span<const std::uint8_t> bytes() const { return bytes_; }
  /// Takes a response: all of it, or as many of its bytes as the length that was set.
  void take(std::span<const std::uint8_t> response);

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t length_ = 0;
};

}  // namespace tarnlog::host
