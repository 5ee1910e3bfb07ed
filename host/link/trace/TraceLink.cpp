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
  link_->setTextHook([this](bool sent, std::string_view text) { writeLine(traceRemark(now(), sent, text)); });
  skipOnFailure([this] { file_->write(std::string(kTraceHeading) + "\n"); });
}

std::chrono::microseconds TraceLink::now() const {
  return std::chrono::microseconds(start_ < 0 ? 0 : clock_.microseconds() - start_);
}

void TraceLink::write(TraceEntry& entry) {
  entry.time = now();
  writeLine(traceLine(entry));
}

void TraceLink::writeLine(const std::string& line) {
  if (file_ && !skipOnFailure([&] { file_->write(line + "\n"); })) file_.reset();
}

/// Runs a step of the link; its failure is written down and passed on.
template <class Step>
auto TraceLink::watched(Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const TarnError& error) {
    TraceEntry entry;
    entry.kind = dynamic_cast<const EcuUnreachable*>(&error) != nullptr ? Kind::unreachable : Kind::failure;
    entry.text = error.description();
    write(entry);
    throw;
  }
}

void TraceLink::open() {
  if (start_ < 0) start_ = clock_.microseconds();
  watched([this] { link_->open(); });
}

void TraceLink::close() { link_->close(); }

void TraceLink::send(const LinkTarget& target, std::span<const std::uint8_t> request) {
  TraceEntry entry;
  entry.target = target;
  entry.bytes.assign(request.begin(), request.end());
  write(entry);
  watched([&] { link_->send(target, request); });
}

bool TraceLink::receive(Bytes& response, std::chrono::milliseconds timeout) {
  const bool came = watched([&] { return link_->receive(response, timeout); });
  if (came) {
    TraceEntry entry;
    entry.kind = Kind::response;
    entry.bytes = response;
    write(entry);
  }
  return came;
}

bool TraceLink::readUnasked(const LinkTarget& target) {
  return watched([&] { return link_->readUnasked(target); });
}

std::vector<LinkTarget> TraceLink::findEcus() {
  return watched([this] { return link_->findEcus(); });
}

}  // namespace tarnlog::host
