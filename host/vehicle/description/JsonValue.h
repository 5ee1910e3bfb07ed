#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tarnlog::host {

struct JsonMember;

/// A value of a JSON document; members keep their order. A number without fraction that fits is an integer.
struct JsonValue {
  using List = std::vector<JsonValue>;
  using Object = std::vector<JsonMember>;

  std::variant<std::monostate, bool, std::int64_t, double, std::string, List, Object> content;
};

struct JsonMember {
  std::string key;
  JsonValue value;
};

/// Parses a whole text. A syntax error is a TarnError naming file, line and column; a key that occurs twice
/// in an object and nesting beyond 64 levels are refused as well.
JsonValue parseJson(std::string_view text, const std::string& fileName);

/// A JSON pointer with one more step.
std::string pointerTo(const std::string& pointer, std::string_view key);

}  // namespace tarnlog::host
