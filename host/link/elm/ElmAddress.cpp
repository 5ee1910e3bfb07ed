#include "host/link/elm/ElmAddress.h"

#include <fmt/format.h>

#include <string_view>

#include "host/link/can/CanPort.h"
#include "host/service/Services.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::int32_t kHighestByte = 0xFF;
constexpr std::uint32_t kHighest11Bits = 0x7FF;
constexpr std::uint32_t kHighest29Bits = 0x1FFFFFFF;
// ISO 15765-4: the eight ECUs of emissions, and how far above a request's identifier the answer's is.
constexpr std::uint32_t kFirstObd = 0x7E0;
constexpr std::uint32_t kLastObd = 0x7E7;
constexpr std::uint32_t kAnswerDistance = 8;
// Identifiers whose answers are known to be that far above.
constexpr std::uint32_t kFirstPaired = 0x700;
constexpr std::uint32_t kLastPaired = 0x7F7;
// Physical addressing with 29 bits (ISO 15765-4): 18DA, target, source; the tester is F1.
constexpr std::uint32_t kPhysical29 = 0x18DA;

[[noreturn]] void refuse(const LinkTarget& target, std::string_view expected) {
  throw TarnError(1, "Elm327Link",
                  fmt::format("ECU address 0x{:X} does not exist on this vehicle's bus: expected {}",
                              static_cast<std::uint32_t>(target.address), expected));
}

ElmAddress functionalAddress(ElmBus bus) {
  ElmAddress address;
  address.functional = true;
  switch (bus) {
    case ElmBus::can29:
      address.header = "DB33F1";
      address.priority = "18";
      break;
    case ElmBus::kwp:
      address.header = "C133F1";
      break;
    case ElmBus::iso9141:
      address.header = "686AF1";
      break;
    case ElmBus::j1850:
      // PWM and VPW have different ones (61 6A F1, 68 6A F1): the adapter knows which.
      break;
    default:
      address.header = "7DF";
      break;
  }
  return address;
}

ElmAddress on11Bits(const LinkTarget& target, bool obd) {
  const auto identifier = static_cast<std::uint32_t>(target.address);
  if (CanPair{identifier, 0}.isFunctional()) return functionalAddress(ElmBus::can11);
  if (target.address <= kHighestByte || identifier > kHighest11Bits) {
    if (obd) return functionalAddress(ElmBus::can11);
    refuse(target, "a CAN identifier from 0x100 to 0x7FF");
  }
  ElmAddress address;
  address.header = fmt::format("{:03X}", identifier);
  address.ownFilter = address.ownFlowControl = identifier < kFirstObd || identifier > kLastObd;
  if (identifier >= kFirstPaired && identifier <= kLastPaired)
    address.source = CanPair::ofEcu(target.address).receive;
  return address;
}

ElmAddress on29Bits(const LinkTarget& target, bool obd) {
  const auto identifier = static_cast<std::uint32_t>(target.address);
  if (target.address > kHighestByte && identifier <= kHighest11Bits) {
    if (obd) return functionalAddress(ElmBus::can29);
    refuse(target, "an ECU address of one byte, or a CAN identifier of 29 bits");
  }
  const std::uint32_t transmit =
      target.address <= kHighestByte ? CanPair::ofEcu(target.address).transmit : identifier & kHighest29Bits;
  ElmAddress address;
  address.priority = fmt::format("{:02X}", transmit >> 24);
  address.header = fmt::format("{:06X}", transmit & 0xFFFFFFU);
  address.ownFilter = transmit >> 16 != kPhysical29;
  if (!address.ownFilter)
    address.source = kPhysical29 << 16 | (transmit & 0xFFU) << 8 | (transmit >> 8 & 0xFFU);
  return address;
}

ElmAddress onWire(const LinkTarget& target, bool obd, ElmBus bus) {
  const bool known = target.address <= kHighestByte;
  if (!obd && !known) refuse(target, "an ECU address of one byte");
  ElmAddress address = functionalAddress(bus);
  if (known) address.source = static_cast<std::uint32_t>(target.address);
  if (obd) return address;
  address.functional = false;
  // The adapter puts the length into the format byte.
  address.header = fmt::format("81{:02X}F1", target.address);
  return address;
}

/// An ECU whose answers have an identifier of their own.
ElmAddress answeredFrom(ElmAddress address, const LinkTarget& target) {
  if (!target.response || address.functional) return address;
  const auto source = static_cast<std::uint32_t>(*target.response);
  if (address.source != source) address.ownFilter = address.ownFlowControl = true;
  address.source = source;
  return address;
}

}  // namespace

ElmAddress elmAddress(const LinkTarget& target, std::span<const std::uint8_t> request, ElmBus bus) {
  const bool obd = isObdRequest(request);
  if (target.address == kFunctionalAddress) return functionalAddress(bus);
  switch (bus) {
    case ElmBus::can29:
      return answeredFrom(on29Bits(target, obd), target);
    case ElmBus::kwp:
    case ElmBus::iso9141:
    case ElmBus::j1850:
      return onWire(target, obd, bus);
    default:
      return answeredFrom(on11Bits(target, obd), target);
  }
}

ElmAddress elmFunctional(const ElmAddress& address, ElmBus bus) {
  ElmAddress all = functionalAddress(bus);
  all.source = address.source;
  return all;
}

std::int32_t ecuAddressOf(std::optional<std::uint32_t> source, ElmBus bus) {
  if (!source) return isCan(bus) || bus == ElmBus::unknown ? static_cast<std::int32_t>(kFirstObd) : 0x10;
  if (bus == ElmBus::can11 && *source >= kFirstPaired + kAnswerDistance)
    return static_cast<std::int32_t>(*source - kAnswerDistance);
  if (bus == ElmBus::can29 && *source >> 8 == 0x18DAF1) return static_cast<std::int32_t>(*source & 0xFFU);
  return static_cast<std::int32_t>(*source);
}

}  // namespace tarnlog::host
