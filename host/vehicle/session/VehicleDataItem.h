#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/vehicle/description/VehicleDescription.h"
#include "platform/ferrox3/Session.h"
#include "platform/text/UserLocale.h"

namespace tarnlog::host {

class VehicleDevice : public ferrox3::Device {
 public:
  explicit VehicleDevice(std::string name) : name_(std::move(name)) {}
  const std::string& name() const override { return name_; }

 private:
  std::string name_;
};

/// The named values of a data item. `label` raises error 9 for a position, `value` error 5 for a label that
/// is not there.
class VehicleEnumeration : public ferrox3::Enumeration {
 public:
  explicit VehicleEnumeration(const std::vector<EnumerationEntry>& entries) : entries_(entries) {}
  std::int32_t Count() const override { return static_cast<std::int32_t>(entries_.size()); }
  std::string label(std::int32_t position) const override;
  std::int32_t value(std::string_view label) const override;
  /// The label of a value, or null.
  const std::string* labelOf(std::int32_t value) const;

 private:
  const std::vector<EnumerationEntry>& entries_;
};

/// A data item of a description. Its value is worked out when a response arrives, its text when somebody asks
/// for it. What is not available is a double NaN, whatever its type, and its value text is "---".
class VehicleDataItem : public ferrox3::DataItem {
 public:
  VehicleDataItem(const DataDescription& description, const VehicleDevice* device, ferrox3::Request& request,
                  const UserLocale& locale);

  const std::string& name() const override { return description_.name; }
  bool readable() const override { return description_.readable; }
  std::int32_t typeCode() const override { return description_.layout.typeCode(); }
  double minimum() const override { return description_.minimum; }
  double maximum() const override { return description_.maximum; }
  const std::string& unit() const override { return description_.unit; }
  const ferrox3::Device* device() const override { return device_; }
  const ferrox3::Enumeration* enumeration() const override;
  bool failure() const override { return description_.failure; }
  std::optional<int> decimals() const override { return description_.decimals; }
  ferrox3::Request& request() const override { return request_; }
  std::optional<ferrox3::Scaling> scaling() const override { return scalingOf(description_.layout); }
  std::optional<std::int64_t> rawNumber() const override;
  const ferrox3::Value& value() const override { return value_; }
  const std::string& valueText() const override;

  const DataDescription& description() const { return description_; }
  /// Takes the value from a response, which may end before the item does.
  void decode(std::span<const std::uint8_t> response);
  void setNotAvailable();

 private:
  void decodeNumber(std::span<const std::uint8_t> response);
  void decodeBytes(std::span<const std::uint8_t> response);
  void writeText() const;

  const DataDescription& description_;
  const VehicleDevice* device_;
  ferrox3::Request& request_;
  const UserLocale& locale_;
  VehicleEnumeration enumeration_;
  ferrox3::Value value_;
  bool available_ = false;
  std::uint32_t pattern_ = 0;  ///< the number's bits, while available
  mutable std::string text_;
  mutable bool textIsCurrent_ = false;
};

}  // namespace tarnlog::host
