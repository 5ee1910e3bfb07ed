#include "host/service/ResponseCheck.h"

#include <algorithm>
#include <array>

#include "host/service/HexText.h"

namespace tarnlog::host {
namespace {

struct CodeText {
  std::uint8_t code;
  std::string_view text;
};

// ISO 14229-1 and ISO 14230-3, ascending.
constexpr std::array kCodes{
    CodeText{0x10, "general reject"},
    CodeText{0x11, "service not supported"},
    CodeText{0x12, "sub-function not supported"},
    CodeText{0x13, "incorrect message length or invalid format"},
    CodeText{0x14, "response too long"},
    CodeText{0x21, "busy, repeat request"},
    CodeText{0x22, "conditions not correct"},
    CodeText{0x23, "routine not complete"},
    CodeText{0x24, "request sequence error"},
    CodeText{0x25, "no response from subnet component"},
    CodeText{0x26, "failure prevents execution of requested action"},
    CodeText{0x31, "request out of range"},
    CodeText{0x33, "security access denied"},
    CodeText{0x34, "authentication required"},
    CodeText{0x35, "invalid key"},
    CodeText{0x36, "exceeded number of attempts"},
    CodeText{0x37, "required time delay not expired"},
    CodeText{0x40, "download not accepted"},
    CodeText{0x41, "improper download type"},
    CodeText{0x42, "cannot download to specified address"},
    CodeText{0x43, "cannot download number of bytes requested"},
    CodeText{0x50, "upload not accepted"},
    CodeText{0x51, "improper upload type"},
    CodeText{0x52, "cannot upload from specified address"},
    CodeText{0x53, "cannot upload number of bytes requested"},
    CodeText{0x70, "upload or download not accepted"},
    CodeText{0x71, "transfer suspended"},
    CodeText{0x72, "general programming failure"},
    CodeText{0x73, "wrong block sequence counter"},
    CodeText{0x74, "illegal address in block transfer"},
    CodeText{0x75, "illegal byte count in block transfer"},
    CodeText{0x76, "illegal block transfer type"},
    CodeText{0x77, "block transfer data checksum error"},
    CodeText{0x78, "response pending"},
    CodeText{0x79, "incorrect byte count during block transfer"},
    CodeText{0x7E, "sub-function not supported in active session"},
    CodeText{0x7F, "service not supported in active session"},
    CodeText{0x80, "service not supported in active diagnostic mode"},
    CodeText{0x81, "engine speed too high"},
    CodeText{0x82, "engine speed too low"},
    CodeText{0x83, "engine is running"},
    CodeText{0x84, "engine is not running"},
    CodeText{0x85, "engine run time too low"},
    CodeText{0x86, "temperature too high"},
    CodeText{0x87, "temperature too low"},
    CodeText{0x88, "vehicle speed too high"},
    CodeText{0x89, "vehicle speed too low"},
    CodeText{0x8A, "throttle or pedal too high"},
    CodeText{0x8B, "throttle or pedal too low"},
    CodeText{0x8C, "transmission not in neutral"},
    CodeText{0x8D, "transmission not in gear"},
    CodeText{0x8F, "brake not pressed"},
    CodeText{0x90, "shift lever not in park"},
    CodeText{0x91, "torque converter clutch locked"},
    CodeText{0x92, "voltage too high"},
    CodeText{0x93, "voltage too low"},
};

std::size_t parameterBytes(std::uint8_t service) {
  switch (service) {
    case service::kCurrentData:
    case service::kReadEcuIdentification:
    case service::kReadDataByLocalIdentifier:
      return 1;
    case service::kReadDataByIdentifier:
      return 2;
    default:
      return 0;
  }
}

bool isNegative(std::span<const std::uint8_t> response) {
  return response.size() >= 3 && response[0] == service::kNegativeResponse;
}

}  // namespace

bool isBusy(std::span<const std::uint8_t> response) {
  return isNegative(response) && response[2] == nrc::kBusyRepeatRequest;
}

bool isOutsideSession(std::span<const std::uint8_t> response) {
  return isNegative(response) && response[2] >= 0x7E && response[2] <= 0x80;
}

bool suppressesAnswer(Protocol protocol, std::span<const std::uint8_t> request) {
  constexpr std::array<std::uint8_t, 5> kWithSubFunction{
      service::kDiagnosticSessionControl, service::kEcuReset, service::kCommunicationControl,
      service::kTesterPresent, service::kControlDtcSetting};
  if (request.size() < 2) return false;
  if (isKwp(protocol)) return request[0] == service::kTesterPresent && request[1] == 0x02;
  return protocol == Protocol::uds && (request[1] & 0x80) != 0 &&
         std::find(kWithSubFunction.begin(), kWithSubFunction.end(), request[0]) != kWithSubFunction.end();
}

std::size_t repeatedBytes(std::span<const std::uint8_t> request) {
  return std::min(request.size(), 1 + parameterBytes(request[0]));
}

ResponseClass classifyResponse(std::span<const std::uint8_t> request,
                               std::span<const std::uint8_t> response) {
  if (isNegative(response) && response[1] == request[0])
    return response[2] == nrc::kResponsePending ? ResponseClass::pending : ResponseClass::negative;
  const std::size_t repeated = repeatedBytes(request);
  if (response.size() < repeated || response[0] != positiveService(request[0])) return ResponseClass::foreign;
  const auto parameter = response.subspan(1, repeated - 1);
  const auto startsWith = [&](std::span<const std::uint8_t> asked) {
    return asked.size() >= parameter.size() && std::ranges::equal(asked.first(parameter.size()), parameter);
  };
  if (startsWith(request.subspan(1))) return ResponseClass::positive;
  // Of several PIDs or identifiers any may come first.
  if (request[0] == service::kCurrentData || request[0] == service::kReadDataByIdentifier)
    for (std::size_t at = repeated; at < request.size(); at += parameter.size())
      if (startsWith(request.subspan(at))) return ResponseClass::positive;
  return ResponseClass::foreign;
}

bool isAnswerTo(std::span<const std::uint8_t> request, std::span<const std::uint8_t> response) {
  return !request.empty() && !response.empty() &&
         classifyResponse(request, response) != ResponseClass::foreign;
}

std::string refusalText(std::span<const std::uint8_t> response) {
  return hexText(response.first(3)) + " " + std::string(negativeResponseText(response[2]));
}

std::string_view negativeResponseText(std::uint8_t code) {
  const auto found =
      std::lower_bound(kCodes.begin(), kCodes.end(), code,
                       [](const CodeText& entry, std::uint8_t wanted) { return entry.code < wanted; });
  return found != kCodes.end() && found->code == code ? found->text : "reason not known";
}

}  // namespace tarnlog::host
