#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/StopPatience.h"
#include "host/link/doip/DoipMessage.h"
#include "host/link/stream/ByteStream.h"

namespace tarnlog::host {

struct DoipSettings {
  std::string host;  ///< name or address; "*" looks for a vehicle on the local networks
  std::uint16_t port = kDoipPort;
  std::uint16_t tester = 0x0E00;     ///< our own logical address
  std::optional<std::uint16_t> ecu;  ///< logical address for all requests; else the request's
  bool sideBySide = true;            ///< several ECUs may be asked at a time
};

/// Diagnostics over IP (ISO 13400-2): one TCP connection to the vehicle's gateway, over which all of its ECUs
/// are reached.
class DoipLink : public Link {
 public:
  using Connect = std::function<std::unique_ptr<ByteStream>(const std::string& host, std::uint16_t port)>;

  /// `connect` makes a closed stream. The clock must outlive the link.
  DoipLink(DoipSettings settings, Connect connect, LinkClock& clock);

  std::size_t mostIdentifiers(const LinkTarget& /*target*/) const override { return kMostIdentifiersAtOnce; }
  std::int64_t answererOf(const LinkTarget& target) const override { return ecuOf(target); }
  bool matchesAnswers() const override { return false; }
  /// Answers to a functional address come from any ECU: nobody else is asked meanwhile.
  bool sideBySide() const override { return settings_.sideBySide && !groupAsked_; }

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;
  /// The ECU of the settings, where they name one. Else the ECUs that answer a functionally addressed
  /// request; if none does, those found by asking the addresses that share the gateway's upper byte.
  /// EcuUnreachable when there is none.
  std::vector<LinkTarget> doFindEcus() override;

 private:
  /// Who is asked.
  struct Ecu {
    bool open = false;               ///< it has not answered
    std::uint64_t sequence = 0;      ///< of its request, among all
    bool acknowledged = false;       ///< the gateway acknowledged the request
    bool acknowledgesFirst = false;  ///< so far, its acknowledgement came before the response
    bool early = false;              ///< a response was dropped since no acknowledgement had come
    int misjudged = 0;               ///< requests without a response after such a drop
  };

  using Ecus = std::map<std::uint16_t, Ecu>;

  std::string findHost();
  void connect(const std::string& host);
  bool activateRouting();
  bool isGranted(std::span<const std::uint8_t> activation) const;
  bool speaksOtherVersion(const DoipMessage& refusal) const;
  std::uint16_t ecuOf(const LinkTarget& target) const;
  void post(std::uint16_t address, std::span<const std::uint8_t> request);
  void askForObd(std::uint16_t address, Moment deadline, std::set<std::uint16_t>& found);
  void askNeighbours(std::set<std::uint16_t>& found);
  std::optional<DoipMessage> nextMessage(Moment deadline);
  void handle(const DoipMessage& message);
  void refused(const DoipMessage& message);
  void discarded(const DoipMessage& message);
  void turnAway(const DoipMessage& message, std::uint8_t code);
  bool isAnswer(const DoipMessage& message) const;
  static Received take(const DoipMessage& message, Ecu& ecu, Bytes& response);
  Ecus::iterator answererIn(const DoipMessage& message);
  Ecus::iterator waiterFor(const DoipMessage& message);
  [[noreturn]] void fail(const std::string& text) const;

  DoipSettings settings_;
  Connect connect_;
  LinkClock& clock_;
  std::unique_ptr<ByteStream> stream_;
  DoipStream messages_;
  std::uint16_t gateway_ = 0;   ///< from vehicle identification or the routing activation response
  Ecus ecus_;                   ///< by logical address
  std::uint64_t sequence_ = 0;  ///< of the request that was sent last
  bool groupAsked_ = false;
  std::uint8_t version_ = kDoipVersion;
  Moment heard_{};  ///< when the last bytes came
  StopPatience patience_{*this, clock_};
  IdleHook waitHook_ = [this] {
    idle();
    patience_.check();
  };
  Bytes frame_;  ///< kept for its capacity
};

}  // namespace tarnlog::host
