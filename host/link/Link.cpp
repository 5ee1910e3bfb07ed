#include "host/link/Link.h"

#include <type_traits>

namespace tarnlog::host {

/// After a failure of the link only opening it again helps.
template <class Result, class Step>
Result Link::watched(Result unreachable, Step&& step) {
  obstacle_.clear();
  try {
    return std::forward<Step>(step)();
  } catch (const TurnedAway& error) {
    obstacle_ = error.description();
    if constexpr (std::is_same_v<Result, Received>) return Received::turnedAway;
    return unreachable;
  } catch (const EcuUnreachable& error) {
    obstacle_ = error.description();
    return unreachable;
  } catch (const TarnError&) {
    open_ = false;
    throw;
  }
}

void Link::open() {
  if (open_) return;
  doOpen();
  open_ = true;
}

void Link::close() {
  open_ = false;
  doClose();
}

bool Link::send(const LinkTarget& target, std::span<const std::uint8_t> request) {
  if (!open_) throw TarnError(1, "Link.send", "the link is not open");
  return watched(false, [&] {
    asked_ = answererOf(target);
    return doSend(target, request);
  });
}

Link::Received Link::receive(Bytes& response, std::chrono::milliseconds timeout) {
  if (!open_) throw TarnError(1, "Link.receive", "the link is not open");
  answerer_ = asked_;
  return watched(Received::unreachable, [&] { return doReceive(response, timeout); });
}

std::vector<LinkTarget> Link::findEcus() {
  if (!open_) throw TarnError(1, "Link.findEcus", "the link is not open");
  return watched(std::vector<LinkTarget>(), [&] { return doFindEcus(); });
}

}  // namespace tarnlog::host
