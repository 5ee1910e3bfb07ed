#pragma once

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/ferrox3/Session.h"
#include "platform/text/Numbers.h"
#include "tests/support/Script.h"

namespace tarnlog::test {

class ScriptedDevice : public ferrox3::Device {
 public:
  explicit ScriptedDevice(std::string name) : name_(std::move(name)) {}
  const std::string& name() const override { return name_; }

 private:
  std::string name_;
};

class ScriptedEnumeration : public ferrox3::Enumeration {
 public:
  using Entry = std::pair<std::string, std::int32_t>;
  explicit ScriptedEnumeration(std::vector<Entry> entries) : entries_(std::move(entries)) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(entries_.size()); }
  std::string label(std::int32_t position) const override {
    return entries_.at(static_cast<std::size_t>(position) - 1).first;
  }
  std::int32_t value(std::string_view label) const override {
    for (const auto& [text, value] : entries_)
      if (text == label) return value;
    throw TarnError(1, "Scripted", "no such label");
  }
  const std::string* labelOf(std::int32_t wanted) const {
    for (const auto& [text, value] : entries_)
      if (value == wanted) return &text;
    return nullptr;
  }

 private:
  std::vector<Entry> entries_;
};

/// A data item whose values the test decides. The `with...` operations give the item back for chaining.
class ScriptedData : public ferrox3::DataItem {
 public:
  ScriptedData(ferrox3::Request& request, std::string name, std::int32_t typeCode, std::string unit,
               double minimum, double maximum)
      : request_(request),
        name_(std::move(name)),
        unit_(std::move(unit)),
        typeCode_(typeCode),
        minimum_(minimum),
        maximum_(maximum) {
    if (typeCode == ferrox3::kInteger)
      setValue(std::int32_t{0});
    else if (typeCode == ferrox3::kString)
      setValue(std::string());
    else if (typeCode == ferrox3::kByteArray)
      setValue(ferrox3::Bytes());
    else
      setValue(0.0);
  }

  ScriptedData& unreadable() {
    readable_ = false;
    return *this;
  }
  ScriptedData& withDevice(std::string name, bool failure = false) {
    device_ = std::make_unique<ScriptedDevice>(std::move(name));
    failure_ = failure;
    return *this;
  }
  ScriptedData& withLabels(std::vector<ScriptedEnumeration::Entry> labels) {
    enumeration_ = std::make_unique<ScriptedEnumeration>(std::move(labels));
    return *this;
  }
  /// The value is this raw number from now on.
  ScriptedData& withRaw(ferrox3::Scaling scaling, std::int64_t raw) {
    scaling_ = scaling;
    raw_ = raw;
    setValue(static_cast<double>(raw) * scaling.factor + scaling.offset);
    return *this;
  }
  void setNotAvailable() {
    raw_.reset();
    setValue(std::numeric_limits<double>::quiet_NaN());
  }
  /// Reading this property ("name", "unit", "minimum", "maximum", "typeCode", "device", "enumeration",
  /// "readable", "value", "valueText") raises from now on; "" for none.
  ScriptedData& raisingAt(std::string property) {
    raisingAt_ = std::move(property);
    return *this;
  }

  /// The value from now on; without a text, the text is the label of an integer or the value written out.
  void setValue(ferrox3::Value value, std::optional<std::string> text = std::nullopt) {
    value_ = std::move(value);
    text_ = text ? *std::move(text) : textOf(value_);
  }

  const std::string& name() const override { return checked("name", name_); }
  bool readable() const override { return checked("readable", readable_); }
  std::int32_t typeCode() const override { return checked("typeCode", typeCode_); }
  double minimum() const override { return checked("minimum", minimum_); }
  double maximum() const override { return checked("maximum", maximum_); }
  const std::string& unit() const override { return checked("unit", unit_); }
  const ferrox3::Device* device() const override { return checked("device", device_).get(); }
  const ferrox3::Enumeration* enumeration() const override {
    return checked("enumeration", enumeration_).get();
  }
  bool failure() const override { return failure_; }
  ferrox3::Request& request() const override { return request_; }
  std::optional<ferrox3::Scaling> scaling() const override { return scaling_; }
  std::optional<std::int64_t> rawNumber() const override { return raw_; }
  const ferrox3::Value& value() const override { return checked("value", value_); }
  const std::string& valueText() const override { return checked("valueText", text_); }

 private:
  template <class T>
  const T& checked(const char* property, const T& value) const {
    if (!raisingAt_.empty() && raisingAt_ == property)
      throw TarnError(1, "Scripted", std::string("no ") + property);
    return value;
  }

  std::string textOf(const ferrox3::Value& value) const {
    std::string text;
    if (const auto* integer = std::get_if<std::int32_t>(&value)) {
      const std::string* const label = enumeration_ ? enumeration_->labelOf(*integer) : nullptr;
      text = label ? *label : std::to_string(*integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
      appendNumber(text, *number, '.');
    } else if (const auto* string = std::get_if<std::string>(&value)) {
      text = *string;
    }
    return text;
  }

  ferrox3::Request& request_;
  std::string name_;
  std::string unit_;
  std::int32_t typeCode_;
  bool readable_ = true;
  bool failure_ = false;
  double minimum_;
  double maximum_;
  std::unique_ptr<ScriptedDevice> device_;
  std::unique_ptr<ScriptedEnumeration> enumeration_;
  std::string raisingAt_;
  std::optional<ferrox3::Scaling> scaling_;
  std::optional<std::int64_t> raw_;
  ferrox3::Value value_;
  std::string text_;
};

}  // namespace tarnlog::test
