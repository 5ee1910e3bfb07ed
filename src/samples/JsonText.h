#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnlog {

/// Appends a text in quotes. A byte that is not UTF-8 becomes U+FFFD.
void appendJson(std::string& out, std::string_view text);
void appendJson(std::string& out, std::int64_t number);
void appendJson(std::string& out, std::uint64_t number);
/// The shortest form that reads back the same; null for what JSON has no number for.
void appendJson(std::string& out, double number);

}  // namespace tarnlog
