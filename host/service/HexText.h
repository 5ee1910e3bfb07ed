#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Bytes as text: two hexadecimal digits each, a blank between bytes ("21 80").
namespace tarnlog::host {

void appendHex(std::string& out, std::span<const std::uint8_t> bytes);
std::string hexText(std::span<const std::uint8_t> bytes);
/// The first 16 bytes, with " ..." when there are more: for one line of a log.
std::string shortHexText(std::span<const std::uint8_t> bytes);

/// Reads such a text; upper or lower case, any number of blanks (or none) between and around the bytes. None
/// when it is anything else. An empty text is no bytes.
std::optional<std::vector<std::uint8_t>> bytesFromHex(std::string_view text);

}  // namespace tarnlog::host
