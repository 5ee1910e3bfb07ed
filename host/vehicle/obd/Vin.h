#pragma once

#include <span>
#include <string>

#include "host/link/Link.h"

namespace tarnlog::host {

/// The vehicle identification number in the responses to service 09, PID 02 (ISO 15031-5): one response on
/// CAN, on older buses five, numbered, of four characters each. Empty when they hold no whole number of 17
/// permitted characters.
std::string vinOf(std::span<const Link::Bytes> responses);

}  // namespace tarnlog::host
