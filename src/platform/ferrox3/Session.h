#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ferrox3/Value.h"

/// The host's diagnostic protocol library, as the recorder sees it: a session knows the vehicle's ECUs, their
/// requests and the data items that each request returns; it sends requests, receives responses and keeps the
/// current value of every data item. The host owns the session and everything obtained from it, except what
/// is returned in a unique_ptr. Failures are TarnErrors. Any operation that waits for the vehicle may let
/// user-interface events run meanwhile. Positions are 0-based unless stated.
namespace tarnlog::ferrox3 {

class Ecu;
class Request;

/// A component of the vehicle that a data item belongs to.
class Device {
 public:
  virtual ~Device() = default;
  virtual const std::string& name() const = 0;
};

/// Named values of a data item.
class Enumeration {
 public:
  virtual ~Enumeration() = default;
  virtual std::int32_t Count() const = 0;
  /// `position` is 1-based.
  virtual std::string label(std::int32_t position) const = 0;
  virtual std::int32_t value(std::string_view label) const = 0;
};

/// How a number is made of the raw number in a response: raw * factor + offset.
struct Scaling {
  double factor = 1;
  double offset = 0;
  int bits = 32;  ///< of the raw number, 1 to 64
  bool isSigned = false;
};

/// What the host knows of the last `send` of a request.
struct Exchange {
  enum class Outcome : std::uint8_t {
    Answered,
    Refused,   ///< a negative response: the data are "not available"
    Silent,    ///< no response, while the ECU answers others: the data are "not available"
    NotAsked,  ///< nothing was sent this time: the data stand as they were
  };
  Outcome outcome = Outcome::Answered;
  /// Monotonic clock of the system, microseconds: when the request went out, and when its answer was there.
  /// Requests that are sent as one share both; an answer may have come before `send` was called.
  std::int64_t sent = 0;
  std::int64_t received = 0;
};

class DataItem {
 public:
  virtual ~DataItem() = default;
  virtual const std::string& name() const = 0;
  virtual bool readable() const = 0;
  /// Value-type code: kInteger, kDouble, kString, kByteArray; other codes are numeric.
  virtual std::int32_t typeCode() const = 0;
  virtual double minimum() const = 0;
  virtual double maximum() const = 0;
  virtual const std::string& unit() const = 0;
  virtual const Device* device() const = 0;            ///< or null
  virtual const Enumeration* enumeration() const = 0;  ///< or null
  virtual bool failure() const = 0;
  /// Digits after the separator in the value text of a number; none where the number itself decides.
  virtual std::optional<int> decimals() const { return std::nullopt; }
  virtual Request& request() const = 0;
  /// None where the host does not tell, or the value is no scaled number.
  virtual std::optional<Scaling> scaling() const { return std::nullopt; }
  /// The number before scaling; none where there is no `scaling`, or the value is "not available".
  virtual std::optional<std::int64_t> rawNumber() const { return std::nullopt; }

  /// Updated when the request that carries it is sent; valid until the next send.
  virtual const Value& value() const = 0;
  /// The library's display text of the value. The reference is valid until the next send.
  virtual const std::string& valueText() const = 0;
};

class Request {
 public:
  virtual ~Request() = default;
  virtual const std::string& name() const = 0;
  virtual bool available() const = 0;
  /// The frame as text, e.g. "21 80"; `sent` true = the frame that is sent. Empty when there is none.
  virtual std::string frameText(bool sent) const = 0;
  virtual std::size_t dataCount() const = 0;
  virtual DataItem& data(std::size_t position) const = 0;
  virtual DataItem* findData(std::string_view name) const = 0;  ///< first of that name, or null
  virtual Ecu& ecu() const = 0;

  /// Sends the request and stores the response in its data items. Raises when the ECU does not answer as it
  /// should; the values are then the old ones.
  virtual void send() = 0;
  /// Bytes of the last exchange as text, e.g. "61 80 1F".
  virtual std::string sentText() const = 0;
  virtual std::string receivedText() const = 0;
  /// None where the host does not tell.
  virtual std::optional<Exchange> lastExchange() const { return std::nullopt; }
};

/// Bytes of one frame, made by the recorder for a raw exchange.
class RawBuffer {
 public:
  virtual ~RawBuffer() = default;
  /// Fills from hexadecimal text; blanks between bytes are allowed. Raises when the text is not that.
  virtual void fill(std::string_view text) = 0;
  virtual std::string text() const = 0;
  /// Empties the buffer and gives it this many bytes; 0 for a response that takes whatever arrives.
  virtual void setLength(std::size_t bytes) = 0;
};

/// What an ECU offers that speaks KWP2000 (ISO 14230).
class Kwp2000 {
 public:
  virtual ~Kwp2000() = default;
  /// StartDiagnosticSession (10) with this diagnostic mode.
  virtual void startDiagnosticSession(std::uint8_t mode) = 0;
};

class Ecu {
 public:
  virtual ~Ecu() = default;
  virtual const std::string& name() const = 0;
  virtual const std::string& functionName() const = 0;
  virtual const std::string& protocolName() const = 0;
  virtual std::int32_t address() const = 0;
  virtual std::size_t requestCount() const = 0;
  virtual Request& request(std::size_t position) const = 0;
  virtual Request* findRequest(std::string_view name) const = 0;  ///< or null
  /// The ECU's own table of data items by name: where a name occurs in several requests, its reference
  /// definition.
  virtual DataItem* findData(std::string_view name) const = 0;  ///< or null
  virtual Kwp2000* kwp2000() = 0;                               ///< null when the ECU speaks something else
  virtual void exchange(const RawBuffer& request, RawBuffer& response) = 0;
};

/// Initialises the ECUs of a poll set and reports on each.
class Protocol {
 public:
  /// ECU, failed, a text that is not used, the error text.
  using InitReport =
      std::function<void(const Ecu&, bool failed, const std::string&, const std::string& error)>;

  virtual ~Protocol() = default;
  virtual void initialiseAll() = 0;
  void setInitReport(InitReport report) { report_ = std::move(report); }

 protected:
  void report(const Ecu& ecu, bool failed, const std::string& text, const std::string& error) const {
    if (report_) report_(ecu, failed, text, error);
  }

 private:
  InitReport report_;
};

/// The requests to send in each cycle, each once however many of its data are wanted, and the ECUs concerned.
class PollSet {
 public:
  virtual ~PollSet() = default;
  virtual std::size_t requestCount() const = 0;
  virtual Request& request(std::size_t position) const = 0;
  virtual std::size_t ecuCount() const = 0;
  virtual Ecu& ecu(std::size_t position) const = 0;
  virtual Protocol& protocol() = 0;
  virtual void finish() = 0;
};

/// Collects the data items of an acquisition and works out what must be sent to read them.
class AcquisitionList {
 public:
  virtual ~AcquisitionList() = default;
  virtual void add(DataItem& item) = 0;
  virtual std::unique_ptr<PollSet> pollSet() = 0;
  virtual void finish() = 0;
};

/// What a session knows about the vehicle and the way to it: "vehicle", "VIN", "adapter", "link".
struct Fact {
  std::string name;
  std::string text;
};

/// How often a diagnostic service (ISO 14229, 14230, 15031) was sent.
struct ServiceCount {
  std::uint8_t service = 0;
  std::uint64_t sent = 0;
  std::string name{};  ///< of the service, for people
};

class Session {
 public:
  virtual ~Session() = default;
  virtual std::size_t ecuCount() const = 0;
  virtual Ecu& ecu(std::size_t position) const = 0;
  virtual Ecu* findEcuByFunction(std::string_view functionName) const = 0;  ///< or null
  virtual std::unique_ptr<AcquisitionList> createAcquisitionList() = 0;
  virtual std::unique_ptr<RawBuffer> createRawBuffer() = 0;
  /// A request is on its way right now.
  virtual bool communicating() const = 0;
  virtual void endCommunication() = 0;
  /// Those that are known by now.
  virtual std::vector<Fact> facts() const { return {}; }
  /// By service, in their order: all that was sent since the way to the vehicle was made, what found out how
  /// to reach it included. None where the host does not tell.
  virtual std::vector<ServiceCount> servicesSent() const { return {}; }
};

}  // namespace tarnlog::ferrox3
