#include "host/vehicle/description/Intervals.h"

#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kLongest = 3'600'000;

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

/// Names may have slashes of their own.
RequestDescription* requestNamed(VehicleDescription& vehicle, std::string_view path) {
  for (EcuDescription& ecu : vehicle.ecus) {
    if (!path.starts_with(ecu.name) || !path.substr(ecu.name.size()).starts_with('/')) continue;
    for (RequestDescription& request : ecu.requests)
      if (path.substr(ecu.name.size() + 1) == request.name) return &request;
  }
  return nullptr;
}

}  // namespace

void setInterval(VehicleDescription& vehicle, std::string_view text) {
  const std::size_t sign = text.rfind('=');
  const auto time = sign == std::string_view::npos ? std::nullopt : wholeNumber(text.substr(sign + 1));
  if (!time || *time < 0 || *time > kLongest)
    throw TarnError(1, "setInterval",
                    fmt::format("interval \"{}\": expected ECU/REQUEST=MS with 0 to {} milliseconds, like "
                                "\"Engine/PID 05=1000\"",
                                text, kLongest));
  RequestDescription* const request = requestNamed(vehicle, text.substr(0, sign));
  if (request == nullptr)
    throw TarnError(1, "setInterval",
                    fmt::format("interval \"{}\": expected an ECU and a request of the vehicle, found \"{}\"",
                                text, text.substr(0, sign)));
  request->interval = std::chrono::milliseconds(*time);
}

}  // namespace tarnlog::host
