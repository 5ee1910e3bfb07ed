#include "platform/ferrox3/OwnSession.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"

namespace tarnlog::ferrox3 {

namespace {

constexpr const char* kNotAvailable = "---";

std::int64_t now() {
  using namespace std::chrono;
  return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

class OwnItem : public DataItem {
 public:
  OwnItem(Request& request, OwnDatum datum) : request_(request), datum_(std::move(datum)) {}

  void set(double value, char decimalSeparator) {
    value_ = value;
    text_.clear();
    if (std::isnan(value))
      text_ = kNotAvailable;
    else
      appendNumber(text_, value, decimalSeparator);
  }

  const std::string& name() const override { return datum_.name; }
  bool readable() const override { return true; }
  std::int32_t typeCode() const override { return kDouble; }
  double minimum() const override { return datum_.minimum; }
  double maximum() const override { return datum_.maximum; }
  const std::string& unit() const override { return datum_.unit; }
  const Device* device() const override { return nullptr; }
  const Enumeration* enumeration() const override { return nullptr; }
  bool failure() const override { return false; }
  Request& request() const override { return request_; }
  const Value& value() const override { return value_; }
  const std::string& valueText() const override { return text_; }

 private:
  Request& request_;
  OwnDatum datum_;
  Value value_ = std::numeric_limits<double>::quiet_NaN();
  std::string text_ = kNotAvailable;
};

class OwnRequest : public Request {
 public:
  OwnRequest(Ecu& ecu, std::string name, const std::vector<OwnDatum>& data, OwnSession::Read read,
             char decimalSeparator)
      : ecu_(ecu), name_(std::move(name)), read_(std::move(read)), decimalSeparator_(decimalSeparator) {
    for (const OwnDatum& datum : data) items_.push_back(std::make_unique<OwnItem>(*this, datum));
  }

  const std::string& name() const override { return name_; }
  bool available() const override { return true; }
  /// The recorder takes a request without a frame for one that cannot be sent.
  std::string frameText(bool /*sent*/) const override { return name_; }
  std::size_t dataCount() const override { return items_.size(); }
  OwnItem& data(std::size_t position) const override { return *items_.at(position); }
  OwnItem* findData(std::string_view name) const override {
    const auto found = std::ranges::find_if(items_, [&](const auto& item) { return item->name() == name; });
    return found == items_.end() ? nullptr : found->get();
  }
  Ecu& ecu() const override { return ecu_; }
  std::string sentText() const override { return {}; }
  std::string receivedText() const override { return {}; }
  std::optional<Exchange> lastExchange() const override { return exchange_; }

  void send() override {
    exchange_.reset();
    const std::int64_t sent = now();
    const std::vector<double> values = read_();
    const std::int64_t received = now();
    if (values.size() != items_.size())
      throw TarnError(1, "OwnSession",
                      ecu_.name() + "/" + name_ + ": expected " + std::to_string(items_.size()) +
                          " values, got " + std::to_string(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i) items_[i]->set(values[i], decimalSeparator_);
    exchange_ = Exchange{.sent = sent, .received = received};
  }

 private:
  Ecu& ecu_;
  std::string name_;
  std::vector<std::unique_ptr<OwnItem>> items_;
  OwnSession::Read read_;
  char decimalSeparator_;
  std::optional<Exchange> exchange_;
};

template <class T>
void addOnce(std::vector<T*>& list, T& object) {
  if (std::ranges::find(list, &object) == list.end()) list.push_back(&object);
}

/// Each request once, in the order in which its first datum was wanted. There is nothing to initialise.
class OwnPollSet : public PollSet, private Protocol {
 public:
  explicit OwnPollSet(const std::vector<DataItem*>& items) {
    for (DataItem* const item : items) {
      addOnce(requests_, item->request());
      addOnce(ecus_, item->request().ecu());
    }
  }
  std::size_t requestCount() const override { return requests_.size(); }
  Request& request(std::size_t position) const override { return *requests_.at(position); }
  std::size_t ecuCount() const override { return ecus_.size(); }
  Ecu& ecu(std::size_t position) const override { return *ecus_.at(position); }
  Protocol& protocol() override { return *this; }
  void finish() override {}

 private:
  void initialiseAll() override {
    for (const Ecu* const each : ecus_) report(*each, false, {}, {});
  }

  std::vector<Request*> requests_;
  std::vector<Ecu*> ecus_;
};

class OwnList : public AcquisitionList {
 public:
  void add(DataItem& item) override { items_.push_back(&item); }
  std::unique_ptr<PollSet> pollSet() override { return std::make_unique<OwnPollSet>(items_); }
  void finish() override {}

 private:
  std::vector<DataItem*> items_;
};

[[noreturn]] void refuseBytes() {
  throw TarnError(1, "OwnSession", "expected no bytes to be exchanged: the data are the program's own");
}

}  // namespace

class OwnSession::OwnEcu : public Ecu {
 public:
  OwnEcu(std::string name, std::int32_t address) : name_(std::move(name)), address_(address) {}

  void add(std::unique_ptr<OwnRequest> request) { requests_.push_back(std::move(request)); }

  const std::string& name() const override { return name_; }
  const std::string& functionName() const override { return name_; }
  const std::string& protocolName() const override { return protocol_; }
  std::int32_t address() const override { return address_; }
  std::size_t requestCount() const override { return requests_.size(); }
  Request& request(std::size_t position) const override { return *requests_.at(position); }
  Request* findRequest(std::string_view name) const override {
    const auto found =
        std::ranges::find_if(requests_, [&](const auto& request) { return request->name() == name; });
    return found == requests_.end() ? nullptr : found->get();
  }
  DataItem* findData(std::string_view name) const override {
    for (const auto& request : requests_)
      if (DataItem* const item = request->findData(name); item != nullptr) return item;
    return nullptr;
  }
  Kwp2000* kwp2000() override { return nullptr; }
  void exchange(const RawBuffer& /*request*/, RawBuffer& /*response*/) override { refuseBytes(); }

 private:
  std::string name_;
  std::string protocol_ = "own";
  std::int32_t address_;
  std::vector<std::unique_ptr<OwnRequest>> requests_;
};

OwnSession::OwnSession(const UserLocale& locale) : decimalSeparator_(locale.decimalSeparator) {}

OwnSession::~OwnSession() = default;

void OwnSession::add(const std::string& ecu, const std::string& request, const std::vector<OwnDatum>& data,
                     Read read) {
  const auto refuse = [&](const std::string& why) {
    throw TarnError(1, "OwnSession", ecu + "/" + request + ": " + why);
  };
  const auto found = std::ranges::find_if(ecus_, [&](const auto& each) { return each->name() == ecu; });
  if (found != ecus_.end() && (*found)->findRequest(request) != nullptr)
    refuse("there is such a request already");
  if (ecu.empty() || request.empty()) refuse("expected names of ECU and request");
  if (!read) refuse("expected a function that reads");
  std::set<std::string> names;
  for (const OwnDatum& datum : data)
    if (datum.name.empty() || !names.insert(datum.name).second)
      refuse("expected data with names of their own, got \"" + datum.name + "\"");
  const auto address = static_cast<std::int32_t>(ecus_.size() + 1);
  OwnEcu& owner =
      *(found != ecus_.end() ? *found : ecus_.emplace_back(std::make_unique<OwnEcu>(ecu, address)));
  owner.add(std::make_unique<OwnRequest>(owner, request, data, std::move(read), decimalSeparator_));
}

std::size_t OwnSession::ecuCount() const { return ecus_.size(); }

Ecu& OwnSession::ecu(std::size_t position) const { return *ecus_.at(position); }

Ecu* OwnSession::findEcuByFunction(std::string_view functionName) const {
  const auto found =
      std::ranges::find_if(ecus_, [&](const auto& each) { return each->name() == functionName; });
  return found == ecus_.end() ? nullptr : found->get();
}

std::unique_ptr<AcquisitionList> OwnSession::createAcquisitionList() { return std::make_unique<OwnList>(); }

std::unique_ptr<RawBuffer> OwnSession::createRawBuffer() { refuseBytes(); }

}  // namespace tarnlog::ferrox3
