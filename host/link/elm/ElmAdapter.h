#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "host/link/elm/ElmAddress.h"
#include "host/link/elm/ElmBusSearch.h"
#include "host/link/elm/ElmConsole.h"
#include "host/link/elm/ElmRate.h"
#include "host/link/elm/ElmSetup.h"

namespace tarnlog::host {

/// What an adapter was told, so that it is told again only what changes. Nothing here may be called while the
/// adapter still answers a request. Raises TarnErrors when the adapter stops answering, starts again by
/// itself, or finds no ECU.
class ElmAdapter {
 public:
  /// `protocol` as ATSP takes it; none: the adapter searches. `mayBeFaster`: see ElmRate.
  ElmAdapter(ElmConsole& console, std::optional<char> protocol, bool mayBeFaster)
      : console_(console), rate_(console, mayBeFaster), search_(console), fixedProtocol_(protocol) {}

  /// Resets it and sets it up, over a new connection when the reset ended this one. Gives its name.
  std::string setUp();
  /// Takes it back to the rate of the line that it had, whatever it is at. It needs a set-up then.
  void leave() {
    skipOnFailure([this] { rate_.leave(); });
  }
  bool isRaised() const { return rate_.isRaised(); }
  void distrustRate() { rate_.distrust(); }
  /// Chooses the bus for a request, searching when none is known.
  void selectBus(const LinkTarget& target, std::span<const std::uint8_t> request);
  /// Nobody answers on the bus any more: the next request looks for one again.
  void forgetBus() { protocol_.reset(); }
  /// See ElmBusSearch.
  int unnamedAnswers() const { return search_.unnamedAnswers(); }
  ElmBus bus() const { return protocol_ ? protocol_->bus : ElmBus::unknown; }

  /// False when the adapter can ask nobody but all ECUs. All of them are what it asks as long as it was not
  /// told otherwise, so that those are done without a command that not every adapter takes well.
  bool setAddress(const ElmAddress& address);
  /// The ECU no longer knows of a communication: its next request starts one.
  void restartCommunication();
  /// How long it waits for an ECU, in its steps.
  void setTimeout(int steps);
  int timeout() const { return timeout_; }
  /// It was told no address since it was set up.
  bool asksByDefault() const { return byDefault_; }

  [[noreturn]] static void failRestarted();

 private:
  std::string reset();
  /// False when the adapter does not know the command.
  bool tell(std::string_view command);
  void setFilter(const ElmAddress& address);
  void setFilter(std::uint32_t source);
  void clearFilter(const ElmAddress& next);
  void openFilter(const ElmAddress& address);

  ElmConsole& console_;
  ElmRate rate_;
  ElmBusSearch search_;
  std::optional<char> fixedProtocol_;
  ElmReset reset_ = ElmReset::restart;
  std::optional<ElmProtocol> protocol_;
  bool onKLine_ = false;               ///< the bus was chosen for an ECU on the K line
  std::optional<ElmAddress> address_;  ///< as the adapter was told
  std::string priority_;
  bool byDefault_ = true;
  bool filtered_ = false;            ///< it listens to identifiers of one ECU
  bool filterStays_ = false;         ///< it knows no command that ends that
  bool ownFlowControl_ = false;      ///< it was told whom to send flow control to
  std::set<std::string> started_{};  ///< headers of the K line with a communication
  int timeout_ = 0;
};

}  // namespace tarnlog::host
