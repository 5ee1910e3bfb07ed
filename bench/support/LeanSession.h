#pragma once

#include <charconv>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/base/TarnError.h"
#include "platform/ferrox3/Session.h"

/// A big vehicle whose answers cost next to nothing, so that what is measured is the reader: every ECU has
/// the same number of requests, every request the same number of data. Half of the data have a unit, some a
/// device, some named values. It can be read, not driven.
namespace tarnlog::bench {

inline TarnError notDriven() { return {1, "LeanSession", "not to be driven"}; }

struct LeanDevice : ferrox3::Device {
  std::string text = "Device of the vehicle";
  const std::string& name() const override { return text; }
};

struct LeanLabels : ferrox3::Enumeration {
  std::string texts[3] = {"Released", "Pressed", "Not available"};
  std::int32_t Count() const override { return 3; }
  std::string label(std::int32_t position) const override { return texts[position - 1]; }
  std::int32_t value(std::string_view label) const override {
    return label == texts[0] ? 0 : label == texts[1] ? 1 : 255;
  }
};

struct LeanVocabulary {
  std::vector<std::string> dataNames;
  std::string unit = "km/h";
  std::string noUnit;
  LeanDevice device;
  LeanLabels labels;
};

class LeanItem : public ferrox3::DataItem {
 public:
  LeanItem(const LeanVocabulary& words, ferrox3::Request& request, std::size_t position,
           const std::string& name)
      : words_(words), request_(request), position_(position), name_(name) {}

  const std::string& name() const override { return name_; }
  bool readable() const override { return true; }
  std::int32_t typeCode() const override { return position_ % 4 == 0 ? ferrox3::kInteger : ferrox3::kDouble; }
  double minimum() const override { return position_ % 3 == 0 ? -40.5 : 0; }
  double maximum() const override { return position_ % 5 == 0 ? 1 : 215.25; }
  const std::string& unit() const override { return position_ % 2 == 0 ? words_.unit : words_.noUnit; }
  const ferrox3::Device* device() const override { return position_ % 5 == 0 ? &words_.device : nullptr; }
  const ferrox3::Enumeration* enumeration() const override {
    return position_ % 12 == 0 ? &words_.labels : nullptr;
  }
  bool failure() const override { return position_ % 10 == 0; }
  ferrox3::Request& request() const override { return request_; }
  const ferrox3::Value& value() const override { throw notDriven(); }
  const std::string& valueText() const override { throw notDriven(); }

 private:
  const LeanVocabulary& words_;
  ferrox3::Request& request_;
  std::size_t position_;
  const std::string& name_;
};

class LeanRequest : public ferrox3::Request {
 public:
  LeanRequest(ferrox3::Ecu& ecu, std::size_t position)
      : ecu_(ecu), name_("Read data by identifier " + std::to_string(position)) {}

  mutable std::deque<LeanItem> items;

  const std::string& name() const override { return name_; }
  bool available() const override { return true; }
  std::string frameText(bool) const override { return "22 01"; }
  std::size_t dataCount() const override { return items.size(); }
  ferrox3::DataItem& data(std::size_t position) const override { return items[position]; }
  ferrox3::DataItem* findData(std::string_view) const override { return nullptr; }
  ferrox3::Ecu& ecu() const override { return ecu_; }
  void send() override { throw notDriven(); }
  std::string sentText() const override { return {}; }
  std::string receivedText() const override { return {}; }

 private:
  ferrox3::Ecu& ecu_;
  std::string name_;
};

class LeanEcu : public ferrox3::Ecu {
 public:
  explicit LeanEcu(std::size_t position)
      : name_("Control unit " + std::to_string(position)),
        function_("Function " + std::to_string(position)),
        address_(static_cast<std::int32_t>(position) + 16) {}

  mutable std::deque<LeanRequest> requests;

  const std::string& name() const override { return name_; }
  const std::string& functionName() const override { return function_; }
  const std::string& protocolName() const override { return name_; }
  std::int32_t address() const override { return address_; }
  std::size_t requestCount() const override { return requests.size(); }
  ferrox3::Request& request(std::size_t position) const override { return requests[position]; }
  ferrox3::Request* findRequest(std::string_view) const override { return nullptr; }
  /// The names end in the position of their first request, a point, and that of the item.
  ferrox3::DataItem* findData(std::string_view name) const override {
    std::size_t request = 0;
    std::size_t item = 0;
    const char* const end = name.data() + name.size();
    const char* const point = std::from_chars(name.data() + name.rfind(' ') + 1, end, request).ptr;
    std::from_chars(point + 1, end, item);
    return &requests[request].items[item];
  }
  ferrox3::Kwp2000* kwp2000() override { return nullptr; }
  void exchange(const ferrox3::RawBuffer&, ferrox3::RawBuffer&) override { throw notDriven(); }

 private:
  std::string name_;
  std::string function_;
  std::int32_t address_;
};

class LeanSession : public ferrox3::Session {
 public:
  LeanSession(std::size_t ecus, std::size_t requests, std::size_t data) {
    const std::size_t different = requests - requests / 20;  // some names occur in two requests
    for (std::size_t r = 0; r < different; ++r)
      for (std::size_t d = 0; d < data; ++d)
        words_.dataNames.push_back("Measured quantity " + std::to_string(r) + "." + std::to_string(d));
    for (std::size_t e = 0; e < ecus; ++e) {
      LeanEcu& ecu = ecus_.emplace_back(e);
      for (std::size_t r = 0; r < requests; ++r) {
        LeanRequest& request = ecu.requests.emplace_back(ecu, r);
        for (std::size_t d = 0; d < data; ++d)
          request.items.emplace_back(words_, request, d, words_.dataNames[r % different * data + d]);
      }
    }
  }

  std::size_t ecuCount() const override { return ecus_.size(); }
  ferrox3::Ecu& ecu(std::size_t position) const override { return ecus_[position]; }
  ferrox3::Ecu* findEcuByFunction(std::string_view) const override { return nullptr; }
  std::unique_ptr<ferrox3::AcquisitionList> createAcquisitionList() override { throw notDriven(); }
  std::unique_ptr<ferrox3::RawBuffer> createRawBuffer() override { throw notDriven(); }
  bool communicating() const override { return false; }
  void endCommunication() override {}

 private:
  LeanVocabulary words_;
  mutable std::deque<LeanEcu> ecus_;
};

}  // namespace tarnlog::bench
