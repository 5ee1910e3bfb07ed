#pragma once

#include <string>
#include <string_view>

/// Texts inside are UTF-8; text record files are windows-1252.
namespace tarnlog {

/// Appends the windows-1252 form of a UTF-8 text; a character without a code, and a byte that is not UTF-8,
/// becomes "?".
void appendWindows1252(std::string& out, std::string_view utf8);

/// The UTF-8 form of windows-1252 bytes (the five codes without a character become U+FFFD).
std::string utf8FromWindows1252(std::string_view bytes);

/// Appends the UTF-8 form of a Unicode character.
void appendUtf8(std::string& out, char32_t character);

bool isUtf8(std::string_view bytes);
bool isAscii(std::string_view bytes);

}  // namespace tarnlog
