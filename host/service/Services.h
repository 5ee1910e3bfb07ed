#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// Diagnostic services: their identifiers, under the names of ISO 14229-1, ISO 14230-3 and ISO 15031-5 (SAE
/// J1979), and what is known of all requests to them.
namespace tarnlog::host {

namespace service {

inline constexpr std::uint8_t kCurrentData = 0x01;
inline constexpr std::uint8_t kVehicleInformation = 0x09;
inline constexpr std::uint8_t kDiagnosticSessionControl = 0x10;  ///< KWP2000: StartDiagnosticSession
inline constexpr std::uint8_t kEcuReset = 0x11;
inline constexpr std::uint8_t kReadEcuIdentification = 0x1A;
inline constexpr std::uint8_t kReadDataByLocalIdentifier = 0x21;
inline constexpr std::uint8_t kReadDataByIdentifier = 0x22;
inline constexpr std::uint8_t kCommunicationControl = 0x28;
inline constexpr std::uint8_t kTesterPresent = 0x3E;
inline constexpr std::uint8_t kNegativeResponse = 0x7F;
inline constexpr std::uint8_t kControlDtcSetting = 0x85;

}  // namespace service

/// Of a positive response.
constexpr std::uint8_t positiveService(std::uint8_t service) {
  return static_cast<std::uint8_t>(service + 0x40);
}

/// Services 01 to 0A of ISO 15031-5: functional addressing may be used, so that all ECUs of a car are asked.
constexpr bool isObdRequest(std::span<const std::uint8_t> request) {
  constexpr std::uint8_t kLastObdService = 0x0A;
  return !request.empty() && request[0] >= service::kCurrentData && request[0] <= kLastObdService;
}

/// Asking twice does no more than asking once: services that read, start a session, or keep it.
constexpr bool mayBeRepeated(std::span<const std::uint8_t> request) {
  constexpr std::array<std::uint8_t, 13> kServices{0x01,
                                                   0x02,
                                                   0x03,
                                                   0x05,
                                                   0x06,
                                                   0x07,
                                                   service::kVehicleInformation,
                                                   0x0A,
                                                   service::kDiagnosticSessionControl,
                                                   service::kReadEcuIdentification,
                                                   service::kReadDataByLocalIdentifier,
                                                   service::kReadDataByIdentifier,
                                                   service::kTesterPresent};
  return !request.empty() && std::find(kServices.begin(), kServices.end(), request[0]) != kServices.end();
}

/// Asks an ECU which PIDs it has; each ECU of the OBD laws answers it.
inline constexpr std::array<std::uint8_t, 2> kSupportedPids{service::kCurrentData, 0x00};
/// PIDs 00, 20, 40, ... tell by one bit each which of the next 32 an ECU supports.
inline constexpr std::uint8_t kPidsPerMask = 0x20;
constexpr bool isPidMask(std::uint8_t pid) { return pid % kPidsPerMask == 0; }
/// PIDs of service 01 that one request may ask for on CAN (ISO 15765-4).
inline constexpr std::size_t kMostPidsAtOnce = 6;

}  // namespace tarnlog::host
