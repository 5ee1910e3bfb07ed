#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/vehicle/description/JsonValue.h"

namespace tarnlog::host {

class JsonObject;

/// A value of a file and the way to it. Every reading operation checks what is there and fails with a
/// TarnError: "road.json: /ecus/0/name: expected a text, found 12". Places refer to the place they came from,
/// which must stay alive.
class JsonPlace {
 public:
  JsonPlace(const JsonValue& root, const std::string& fileName) : value_(&root), fileName_(&fileName) {}

  bool boolean() const;
  double number() const;  ///< always finite
  std::int64_t integer(std::int64_t lowest, std::int64_t highest) const;
  /// From 0 on, or the same as text in hexadecimal ("0x7E0").
  std::uint32_t natural(std::uint32_t highest) const;
  const std::string& text() const;
  /// A text that is not empty and has no control characters.
  const std::string& name() const;
  /// 1 to 4095 bytes of hexadecimal text.
  std::vector<std::uint8_t> frame() const;
  /// The position of the text among these.
  std::size_t choice(std::initializer_list<std::string_view> texts) const;
  /// An object that has no other keys than these; without any, all keys are allowed.
  JsonObject object(std::initializer_list<std::string_view> knownKeys) const;

  bool isText() const { return std::holds_alternative<std::string>(value_->content); }
  bool isObject() const { return std::holds_alternative<JsonValue::Object>(value_->content); }
  bool isList() const { return std::holds_alternative<JsonValue::List>(value_->content); }
  std::size_t size() const { return list().size(); }
  JsonPlace operator[](std::size_t index) const { return {list()[index], *fileName_, this, {}, index}; }

  [[noreturn]] void expected(std::string_view what) const;
  [[noreturn]] void fail(std::string_view message) const;

 private:
  friend class JsonObject;

  JsonPlace(const JsonValue& value, const std::string& fileName, const JsonPlace* parent,
            std::string_view key, std::size_t index)
      : value_(&value), fileName_(&fileName), parent_(parent), key_(key), index_(index) {}

  const JsonValue::List& list() const;
  std::string pointer() const;
  std::string found() const;

  const JsonValue* value_;
  const std::string* fileName_;
  const JsonPlace* parent_ = nullptr;
  std::string_view key_;
  std::size_t index_ = 0;
};

/// An object whose keys are known. Places taken from it refer to it.
class JsonObject {
 public:
  JsonObject(const JsonPlace& place, const JsonValue::Object& members) : place_(place), members_(members) {}
  JsonObject(const JsonObject&) = delete;
  JsonObject& operator=(const JsonObject&) = delete;

  const JsonPlace& place() const { return place_; }
  std::optional<JsonPlace> find(std::string_view key) const;
  JsonPlace require(std::string_view key) const;
  std::size_t size() const { return members_.size(); }
  const std::string& keyAt(std::size_t index) const { return members_[index].key; }
  JsonPlace at(std::size_t index) const { return child(members_[index]); }

  bool boolean(std::string_view key, bool otherwise) const;
  double number(std::string_view key, double otherwise) const;
  std::int64_t integer(std::string_view key, std::int64_t lowest, std::int64_t highest,
                       std::int64_t otherwise) const;

 private:
  JsonPlace child(const JsonMember& member) const {
    return {member.value, *place_.fileName_, &place_, member.key, 0};
  }

  JsonPlace place_;
  const JsonValue::Object& members_;
};

}  // namespace tarnlog::host
