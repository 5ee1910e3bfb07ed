#include "host/link/trace/TraceLink.h"

#include <string>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

using Kind = TraceEntry::Kind;

TraceLink::TraceLink(std::unique_ptr<Link> link, LinkClock& clock, std::unique_ptr<FileStream> file)
    : link_(std::move(link)), clock_(clock), file_(std::move(file)) {
  link_->setIdleHook([this] { idle(); });
  link_->setStopQuestion([this] { return stopAsked(); });
  link_->setTextHook(
      [this](bool sent, std::string_view text) { writeLine(traceRemark(sinceStart(), sent, text)); });
  skipOnFailure([this] { file_->write(std::string(kTraceHeading) + "\n"); });
}

std::chrono::microseconds TraceLink::sinceStart() const {
  return start_ ? clock_.now() - *start_ : std::chrono::microseconds{};
}

void TraceLink::write(TraceEntry& entry) {
  entry.time = sinceStart();
  writeLine(traceLine(entry));
}

void TraceLink::writeLine(const std::string& line) {
  if (file_ && !skipOnFailure([&] { file_->write(line + "\n"); })) file_.reset();
}

void TraceLink::writeText(Kind kind, const std::string& text) {
  TraceEntry entry;
  entry.kind = kind;
  entry.text = text;
  write(entry);
}

/// Runs a step of the link. What went wrong is written down; a failure is passed on.
template <class Step>
auto TraceLink::watched(Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const TarnError& error) {
    writeText(Kind::failure, error.description());
    throw;
  }
}

void TraceLink::doOpen() {
  if (!start_) start_ = clock_.now();
  watched([this] { link_->open(); });
}

void TraceLink::doClose() { link_->close(); }

bool TraceLink::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  TraceEntry entry;
  entry.target = target;
  entry.bytes.assign(request.begin(), request.end());
  newest_ = link_->answererOf(target);
  asked_.insert_or_assign(newest_, target);
  write(entry);
  const bool reached = watched([&] { return link_->send(target, request); });
  if (!reached) writeText(Kind::unreachable, link_->obstacle());
  return reached;
}

Link::Received TraceLink::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  const Received received = watched([&] { return link_->receive(response, timeout); });
  setAnswerer(link_->answerer());
  const bool unreachable = received == Received::unreachable;
  // Whoever asked may do so once more: a replay must not take it for the end.
  if (received == Received::turnedAway) writeLine("# turned away: " + link_->obstacle());
  if (received != Received::response && !unreachable) return received;
  TraceEntry entry;
  entry.kind = unreachable ? Kind::unreachable : Kind::response;
  if (unreachable)
    entry.text = link_->obstacle();
  else
    entry.bytes = response;
  nameAnswerer(entry);
  write(entry);
  return received;
}

/// What belongs to the request before it needs no name.
void TraceLink::nameAnswerer(TraceEntry& entry) {
  const auto asked = asked_.find(link_->answerer());
  entry.ofNewest = link_->answerer() == newest_ || asked == asked_.end();
  if (!entry.ofNewest) entry.target = asked->second;
}

std::vector<LinkTarget> TraceLink::doFindEcus() {
  std::vector<LinkTarget> ecus = watched([this] { return link_->findEcus(); });
  if (!obstacle().empty()) writeText(Kind::unreachable, obstacle());
  return ecus;
}

}  // namespace tarnlog::host
