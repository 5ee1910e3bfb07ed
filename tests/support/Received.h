#pragma once

#include <chrono>

#include "host/link/Link.h"

namespace tarnlog::test {

/// Whether a response came.
inline bool received(host::Link& link, host::Link::Bytes& response, std::chrono::milliseconds timeout) {
  return link.receive(response, timeout) == host::Link::Received::response;
}

}  // namespace tarnlog::test
