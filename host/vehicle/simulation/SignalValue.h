#pragma once

#include "host/vehicle/description/Signal.h"

namespace tarnlog::host {

/// What a simulated value is this many seconds after the link was opened.
double signalValue(const Signal& signal, double seconds);

}  // namespace tarnlog::host
