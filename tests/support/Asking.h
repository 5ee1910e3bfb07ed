#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "host/link/Link.h"
#include "host/service/HexText.h"
#include "tests/support/FailureOf.h"

namespace tarnlog::test {

/// Whether a response came.
inline bool received(host::Link& link, host::Link::Bytes& response, std::chrono::milliseconds timeout) {
  return link.receive(response, timeout) == host::Link::Received::response;
}

/// Opens the link when it is not. Gives all that is answered, "7F 21 78; 61 80 12; ", and behind it why the
/// ECU cannot be reached, or what failed: the link is closed then.
inline std::string ask(host::Link& link, const host::LinkTarget& target, std::string_view request,
                       std::chrono::milliseconds timeout = std::chrono::milliseconds(100)) {
  std::string answers;
  const std::string failure = failureOf([&] {
    link.open();
    host::Link::Bytes response;
    if (!link.send(target, *host::bytesFromHex(request))) return;
    while (received(link, response, timeout)) answers += host::hexText(response) + "; ";
  });
  if (failure == "none") return answers + link.obstacle();
  link.close();
  return answers + failure;
}

}  // namespace tarnlog::test
