#include "host/link/elm/ElmAdapter.h"

#include <fmt/format.h>

#include "host/service/Protocol.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::chrono::seconds kCommandPatience{2};
constexpr std::int32_t kHighestWireAddress = 0xFF;
constexpr std::string_view kDefaultPriority = "18";

/// KWP2000 with an address of one byte is on the K line, where emissions (OBD) may be on CAN.
bool belongsToKLine(const LinkTarget& target, std::span<const std::uint8_t> request) {
  return protocolOf(target.protocol) == Protocol::kwp2000 && target.address >= 0 &&
         target.address <= kHighestWireAddress && !isObdRequest(request);
}

}  // namespace

void ElmAdapter::failRestarted() {
  throw TarnError(1, "Elm327Link",
                  "the adapter has started again by itself: is its supply weak, or its plug loose?");
}

bool ElmAdapter::tell(std::string_view command) {
  const ElmReply reply = console_.command(command, kCommandPatience);
  if (!reply.prompted)
    throw TarnError(1, "Elm327Link", fmt::format("the adapter stopped answering at {}", command));
  if (reply.has(ElmNotice::restarted)) failRestarted();
  return !reply.has(ElmNotice::unknownCommand);
}

std::string ElmAdapter::reset() {
  try {
    return setUpElm(console_, rate_, reset_);
  } catch (const AdapterGone&) {
    if (reset_ == ElmReset::defaults) throw;
  }
  reset_ = ElmReset::defaults;
  console_.close();
  console_.open();
  return setUpElm(console_, rate_, reset_);
}

std::string ElmAdapter::setUp() {
  std::string name = reset();
  search_.forgetPatience();
  protocol_.reset();
  address_.reset();
  priority_ = kDefaultPriority;
  byDefault_ = true;
  filtered_ = filterStays_ = ownFlowControl_ = false;
  started_.clear();
  timeout_ = kElmDefaultTimeout;
  return name;
}

void ElmAdapter::selectBus(const LinkTarget& target, std::span<const std::uint8_t> request) {
  const bool kLine = !fixedProtocol_ && belongsToKLine(target, request);
  if (protocol_ && (kLine == onKLine_ || (kLine && protocol_->bus == ElmBus::kwp))) return;
  // Another protocol takes its own header.
  address_.reset();
  started_.clear();
  if (fixedProtocol_) {
    protocol_ = search_.choose(*fixedProtocol_);
  } else if (kLine) {
    byDefault_ = false;
    protocol_ = search_.findOnKLine(elmAddress(target, request, ElmBus::kwp));
  } else {
    protocol_ = search_.find();
    if (search_.patient()) timeout_ = kElmLongestTimeout;
  }
  onKLine_ = kLine;
}

bool ElmAdapter::setAddress(const ElmAddress& address) {
  if (address_ == address || (address.functional && byDefault_)) return true;
  byDefault_ = false;
  setFilter(address);
  if (!address.priority.empty() && address.priority != priority_ && tell("ATCP" + address.priority))
    priority_ = address.priority;
  const bool onWire = bus() == ElmBus::kwp && !address.functional;
  // Each ECU of the K line wants a communication of its own.
  if (onWire && started_.insert(address.header).second && address_) tell("ATPC");
  const bool known = address.header.empty() || tell("ATSH" + address.header);
  if (!known && !address.functional) return false;
  if (onWire) tell(fmt::format("ATWM{}3E", address.header));
  address_ = address;
  return true;
}

void ElmAdapter::restartCommunication() {
  started_.clear();
  tell("ATPC");
}

void ElmAdapter::setFilter(const ElmAddress& address) {
  if (!address.ownFilter) {
    clearFilter(address);
  } else {
    filtered_ = true;
    if (address.source)
      setFilter(*address.source);
    else
      openFilter(address);
  }
  // With 29 bits the adapter makes the address of its own.
  const bool ownFlowControl = address.ownFlowControl && bus() != ElmBus::can29;
  if (ownFlowControl) {
    tell("ATFCSH" + address.header);
    tell("ATFCSD300000");
    tell("ATFCSM1");
  } else if (ownFlowControl_) {
    tell("ATFCSM0");
  }
  ownFlowControl_ = ownFlowControl;
}

/// Old chips know one of the two, later ones both. One that knows neither listens to one ECU from then on,
/// and is told to which.
void ElmAdapter::clearFilter(const ElmAddress& next) {
  if (!filtered_) return;
  if (!filterStays_) {
    const bool cleared = tell("ATCRA");
    filterStays_ = !tell("ATAR") && !cleared;
  }
  filtered_ = filterStays_;
  if (filterStays_ && next.source) setFilter(*next.source);
}

void ElmAdapter::setFilter(std::uint32_t source) {
  tell(fmt::format("ATCRA{:0{}X}", source, bus() == ElmBus::can29 ? 8 : 3));
}

/// Whose identifier the answers have is not known: one near to the request's.
void ElmAdapter::openFilter(const ElmAddress& address) {
  const bool long29 = bus() == ElmBus::can29;
  tell(long29 ? "ATCM00000000" : "ATCM700");
  tell(long29 ? "ATCF00000000" : fmt::format("ATCF{}00", address.header.front()));
}

void ElmAdapter::setTimeout(int steps) {
  if (timeout_ == steps) return;
  timeout_ = steps;
  tell(elmTimeoutCommand(steps));
}

}  // namespace tarnlog::host
