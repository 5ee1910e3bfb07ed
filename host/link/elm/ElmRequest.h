#pragma once

#include <cstdint>
#include <span>

/// What a link must know of diagnostic requests to ask again, and to tell an answer from another's.
namespace tarnlog::host {

/// Services 01 to 0A of ISO 15031-5: all ECUs of a car may be asked at once.
bool isObdRequest(std::span<const std::uint8_t> request);

/// Asking twice does no more than asking once: services that read, start a session, or keep it.
bool mayBeRepeated(std::span<const std::uint8_t> request);

/// Positive or not, the message answers the request: its service, and what the service repeats of it.
bool isAnswerTo(std::span<const std::uint8_t> request, std::span<const std::uint8_t> message);

/// "Response pending" (7F, service, 78): the ECU has more to say.
bool isResponsePending(std::span<const std::uint8_t> message);

}  // namespace tarnlog::host
