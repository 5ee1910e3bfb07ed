#include "host/vehicle/description/JsonValue.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

using nlohmann::json;

constexpr std::size_t kDeepest = 64;

/// Builds the tree from the parser's events.
class TreeBuilder : public nlohmann::json_sax<json> {
 public:
  TreeBuilder(std::string_view text, const std::string& fileName) : text_(text), fileName_(fileName) {}

  JsonValue take() { return std::move(root_); }

  bool null() override { return scalar(std::monostate{}); }
  bool boolean(bool value) override { return scalar(value); }
  bool number_integer(number_integer_t value) override { return scalar(std::int64_t{value}); }
  bool number_unsigned(number_unsigned_t value) override {
    if (value > static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max()))
      return scalar(static_cast<double>(value));
    return scalar(static_cast<std::int64_t>(value));
  }
  bool number_float(number_float_t value, const string_t&) override { return scalar(double{value}); }
  bool string(string_t& value) override { return scalar(std::move(value)); }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return start(JsonValue::Object{}); }
  bool start_array(std::size_t) override { return start(JsonValue::List{}); }
  bool end_array() override {
    open_.pop_back();
    return true;
  }
  bool end_object() override {
    refuseRepeatedKeys(std::get<JsonValue::Object>(open_.back()->content));
    open_.pop_back();
    return true;
  }
  bool key(string_t& name) override {
    std::get<JsonValue::Object>(open_.back()->content).push_back(JsonMember{std::move(name), {}});
    return true;
  }

  bool parse_error(std::size_t position, const std::string&, const json::exception& error) override {
    const std::string_view before = text_.substr(0, position > 0 ? position - 1 : 0);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineStart = before.rfind('\n') + 1;
    throw TarnError(1, "Vehicle description",
                    fmt::format("{}: line {}, column {}: {}", fileName_, line, before.size() - lineStart + 1,
                                reasonOf(error.what())));
  }

 private:
  /// The library's message without the code and position in front.
  static std::string_view reasonOf(std::string_view message) {
    for (const std::string_view mark : {"column ", "] "}) {
      const std::size_t at = message.find(mark);
      if (at == std::string_view::npos) continue;
      const std::size_t colon = mark == "] " ? at : message.find(": ", at);
      if (colon != std::string_view::npos) return message.substr(colon + 2);
    }
    return message;
  }

  template <class Content>
  bool scalar(Content content) {
    slot().content = std::move(content);
    return true;
  }

  template <class Container>
  bool start(Container container) {
    if (open_.size() >= kDeepest)
      throw TarnError(1, "Vehicle description",
                      fmt::format("{}: {}: nested too deeply", fileName_, pointer()));
    JsonValue& value = slot();
    value.content = std::move(container);
    open_.push_back(&value);
    return true;
  }

  /// Where the next value goes. A container is only moved by its parent's growth, when it is closed already.
  JsonValue& slot() {
    if (open_.empty()) return root_;
    if (auto* const list = std::get_if<JsonValue::List>(&open_.back()->content)) return list->emplace_back();
    return std::get<JsonValue::Object>(open_.back()->content).back().value;
  }

  std::string pointer() const {
    std::string path;
    for (const JsonValue* const container : open_) {
      if (const auto* const list = std::get_if<JsonValue::List>(&container->content)) {
        if (!list->empty()) path = pointerTo(path, std::to_string(list->size() - 1));
      } else if (const auto& object = std::get<JsonValue::Object>(container->content); !object.empty()) {
        path = pointerTo(path, object.back().key);
      }
    }
    return path;
  }

  void refuseRepeatedKeys(const JsonValue::Object& object) const {
    std::vector<std::string_view> keys;
    keys.reserve(object.size());
    for (const JsonMember& member : object) keys.push_back(member.key);
    std::sort(keys.begin(), keys.end());
    const auto repeated = std::adjacent_find(keys.begin(), keys.end());
    if (repeated == keys.end()) return;
    throw TarnError(1, "Vehicle description",
                    fmt::format("{}: {}: expected each key once, found \"{}\" twice", fileName_,
                                placeOfContainer(), *repeated));
  }

  std::string placeOfContainer() const {
    const std::string path = pointer();
    return path.substr(0, path.rfind('/'));
  }

  std::string_view text_;
  const std::string& fileName_;
  JsonValue root_;
  std::vector<JsonValue*> open_;
};

}  // namespace

JsonValue parseJson(std::string_view text, const std::string& fileName) {
  TreeBuilder builder(text, fileName);
  json::sax_parse(text.begin(), text.end(), &builder);
  return builder.take();
}

std::string pointerTo(const std::string& pointer, std::string_view key) {
  std::string longer = pointer + '/';
  for (const char character : key) {
    if (character == '~')
      longer += "~0";
    else if (character == '/')
      longer += "~1";
    else
      longer += character;
  }
  return longer;
}

}  // namespace tarnlog::host
