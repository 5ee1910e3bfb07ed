#include "host/link/elm/ElmRequest.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarnlog::host {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kNegative = 0x7F;
constexpr std::uint8_t kPending = 0x78;
constexpr std::uint8_t kPositive = 0x40;
constexpr std::uint8_t kCurrentData = 0x01;

/// Bytes of parameter that stand in the answer as they do in the request.
std::size_t repeatedParameter(std::uint8_t service) {
  if (service == 0x22) return 2;
  return service == 0x1A || service == 0x21 ? 1 : 0;
}

}  // namespace

bool isObdRequest(Bytes request) {
  constexpr std::uint8_t kLastObdService = 0x0A;
  return !request.empty() && request[0] >= kCurrentData && request[0] <= kLastObdService;
}

bool mayBeRepeated(Bytes request) {
  constexpr std::array<std::uint8_t, 13> kServices{0x01, 0x02, 0x03, 0x05, 0x06, 0x07, 0x09,
                                                   0x0A, 0x10, 0x1A, 0x21, 0x22, 0x3E};
  return !request.empty() && std::find(kServices.begin(), kServices.end(), request[0]) != kServices.end();
}

bool isAnswerTo(Bytes request, Bytes message) {
  if (request.empty() || message.empty()) return false;
  if (message[0] == kNegative) return message.size() >= 3 && message[1] == request[0];
  if (message[0] != static_cast<std::uint8_t>(request[0] + kPositive)) return false;
  if (request[0] == kCurrentData && request.size() >= 2)
    return message.size() >= 2 && std::find(request.begin() + 1, request.end(), message[1]) != request.end();
  const std::size_t repeated = std::min(1 + repeatedParameter(request[0]), request.size());
  return message.size() >= repeated &&
         std::equal(request.begin() + 1, request.begin() + static_cast<std::ptrdiff_t>(repeated),
                    message.begin() + 1);
}

bool isResponsePending(Bytes message) {
  return message.size() >= 3 && message[0] == kNegative && message[2] == kPending;
}

}  // namespace tarnlog::host
