#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/service/Protocol.h"

/// Telling whether a response belongs to a request (ISO 14229-1, ISO 14230-3, ISO 15031-5).
namespace tarnlog::host {

/// Negative response codes that change what is done next.
namespace nrc {

inline constexpr std::uint8_t kIncorrectMessageLength = 0x13;  ///< or an invalid format
inline constexpr std::uint8_t kResponseTooLong = 0x14;
inline constexpr std::uint8_t kBusyRepeatRequest = 0x21;
inline constexpr std::uint8_t kConditionsNotCorrect = 0x22;
inline constexpr std::uint8_t kResponsePending = 0x78;

}  // namespace nrc

enum class ResponseClass : std::uint8_t {
  positive,
  negative,  ///< 7F, service, code
  pending,   ///< 7F, service, 78: the answer comes later
  foreign    ///< belongs to something else
};

/// 7F, service, 21: the ECU has no time now and is to be asked again.
bool isBusy(std::span<const std::uint8_t> response);

/// 7F, service, 7E, 7F or 80: another session than the active one would be needed.
bool isOutsideSession(std::span<const std::uint8_t> response);

/// The request asks for no positive answer: the sub-function's upper bit of UDS in sessions (10), resets
/// (11), CommunicationControl (28), TesterPresent (3E) and ControlDTCSetting (85), or TesterPresent 02 of
/// KWP2000.
bool suppressesAnswer(Protocol protocol, std::span<const std::uint8_t> request);

/// Number of bytes that a positive response repeats from the request, the service id included: services 01
/// (PID), 1A (option) and 21 (local identifier) repeat one byte of parameter, 22 (identifier) two. Never more
/// than the request has; the request has at least one byte.
std::size_t repeatedBytes(std::span<const std::uint8_t> request);

/// The request has at least one byte.
ResponseClass classifyResponse(std::span<const std::uint8_t> request, std::span<const std::uint8_t> response);

/// Positive or not, it belongs to the request. Either may be empty.
bool isAnswerTo(std::span<const std::uint8_t> request, std::span<const std::uint8_t> response);

/// A negative response as text: "7F 21 31 request out of range".
std::string refusalText(std::span<const std::uint8_t> response);

/// What a negative response code means, in the words of the standards.
std::string_view negativeResponseText(std::uint8_t code);

}  // namespace tarnlog::host
