#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "tests/support/Script.h"
#include "tests/support/ScriptedData.h"

namespace tarnlog::test {

class ScriptedEcu;

/// A request whose answers the test decides.
class ScriptedRequest : public ferrox3::Request {
 public:
  ScriptedRequest(Script& script, ScriptedEcu& ecu, std::string name, std::string frame)
      : script_(script), ecu_(ecu), name_(std::move(name)), frame_(std::move(frame)) {}

  ScriptedData& addData(std::string name, std::int32_t typeCode = ferrox3::kDouble, std::string unit = {},
                        double minimum = 0, double maximum = 100);

  bool isAvailable = true;
  std::string answer = "61 80";  ///< what `receivedText` gives
  Failing failing;               ///< of `send`
  /// What `lastExchange` gives.
  std::optional<ferrox3::Exchange> exchange{};

  const std::string& name() const override { return name_; }
  bool available() const override { return isAvailable; }
  std::string frameText(bool) const override { return frame_; }
  std::size_t dataCount() const override { return data_.size(); }
  ScriptedData& data(std::size_t position) const override { return *data_.at(position); }
  ScriptedData* findData(std::string_view name) const override {
    for (const auto& item : data_)
      if (item->name() == name) return item.get();
    return nullptr;
  }
  ferrox3::Ecu& ecu() const override;
  void send() override;
  std::string sentText() const override { return frame_; }
  std::string receivedText() const override { return answer; }
  std::optional<ferrox3::Exchange> lastExchange() const override { return exchange; }

 private:
  Script& script_;
  ScriptedEcu& ecu_;
  std::string name_;
  std::string frame_;
  std::vector<std::unique_ptr<ScriptedData>> data_;
};

class ScriptedRawBuffer : public ferrox3::RawBuffer {
 public:
  void fill(std::string_view text) override {
    if (text.find_first_not_of("0123456789ABCDEFabcdef ") != std::string_view::npos)
      throw TarnError(1, "Scripted", "no hexadecimal text");
    text_ = text;
  }
  std::string text() const override { return text_; }
  void setLength(std::size_t) override { text_.clear(); }

 private:
  std::string text_;
};

/// An ECU. Where a data name occurs in several requests, its table points to the first one unless told
/// otherwise.
class ScriptedEcu : public ferrox3::Ecu, private ferrox3::Kwp2000 {
 public:
  ScriptedEcu(Script& script, std::string name, std::string function, std::int32_t address,
              std::string protocol)
      : script_(script),
        name_(std::move(name)),
        function_(std::move(function)),
        address_(address),
        protocol_(std::move(protocol)) {}

  /// The name is the frame when no frame is given.
  ScriptedRequest& addRequest(std::string name, std::string frame) {
    requests_.push_back(std::make_unique<ScriptedRequest>(script_, *this, std::move(name), std::move(frame)));
    return *requests_.back();
  }
  ScriptedRequest& addRequest(std::string name) { return addRequest(name, name); }

  void pointTableTo(ScriptedData& item) { table_[item.name()] = &item; }
  void addToTable(ScriptedData& item, const std::string& name) { table_.emplace(name, &item); }
  void removeFromTable(const std::string& name) { table_.erase(name); }

  Failing failingInit;           ///< reported per ECU
  Failing failingSession;        ///< of the start of a diagnostic session
  Failing failingExchange;       ///< of a raw exchange
  mutable Failing failingTable;  ///< of the look-up in the data table
  std::string answer = "50";     ///< what a raw exchange receives

  const std::string& name() const override { return name_; }
  const std::string& functionName() const override { return function_; }
  const std::string& protocolName() const override { return protocol_; }
  std::int32_t address() const override { return address_; }
  std::size_t requestCount() const override { return requests_.size(); }
  ScriptedRequest& request(std::size_t position) const override { return *requests_.at(position); }
  ScriptedRequest* findRequest(std::string_view name) const override {
    for (const auto& request : requests_)
      if (request->name() == name) return request.get();
    return nullptr;
  }
  ferrox3::DataItem* findData(std::string_view name) const override {
    failingTable.check();
    const auto found = table_.find(std::string(name));
    return found == table_.end() ? nullptr : found->second;
  }
  ferrox3::Kwp2000* kwp2000() override { return protocol_ == "KWP2000" ? this : nullptr; }
  void exchange(const ferrox3::RawBuffer& request, ferrox3::RawBuffer& response) override {
    script_.call("exchange " + name_ + " " + request.text());
    failingExchange.check();
    response.fill(answer);
  }
  void initialise() {
    script_.call("init " + name_);
    failingInit.check();
  }

 private:
  void startDiagnosticSession(std::uint8_t mode) override {
    static const char* const kDigits = "0123456789ABCDEF";
    script_.call("session " + name_ + " " + kDigits[mode >> 4] + kDigits[mode & 15]);
    failingSession.check();
  }

  Script& script_;
  std::string name_;
  std::string function_;
  std::int32_t address_;
  std::string protocol_;
  std::vector<std::unique_ptr<ScriptedRequest>> requests_;
  std::unordered_map<std::string, ScriptedData*> table_;
};

inline ferrox3::Ecu& ScriptedRequest::ecu() const { return ecu_; }

inline ScriptedData& ScriptedRequest::addData(std::string name, std::int32_t typeCode, std::string unit,
                                              double minimum, double maximum) {
  data_.push_back(
      std::make_unique<ScriptedData>(*this, std::move(name), typeCode, std::move(unit), minimum, maximum));
  ecu_.addToTable(*data_.back(), data_.back()->name());
  return *data_.back();
}

inline void ScriptedRequest::send() {
  script_.call("send " + ecu_.name() + " " + name_);
  failing.check();
}

}  // namespace tarnlog::test
