#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "host/link/BackOff.h"
#include "host/link/Link.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

/// Another link that is not opened again at once after it failed.
class PatientLink : public Link {
  /// Runs a step of the link; after a failure the next opening has to wait.
  template <class Step>
  auto watched(Step&& step) {
    try {
      return std::forward<Step>(step)();
    } catch (const EcuUnreachable&) {
      throw;
    } catch (const TarnError&) {
      backOff_.failed();
      throw;
    }
  }

 public:
  PatientLink(std::unique_ptr<Link> link, LinkClock& clock) : link_(std::move(link)), backOff_(clock) {
    link_->setIdleHook([this] { idle(); });
    link_->setStopQuestion([this] { return stopAsked(); });
  }

  void open() override {
    backOff_.wait([this] {
      idle();
      if (stopAsked()) throw TarnError(1, "Link", "stopped before the next attempt");
    });
    watched([this] { link_->open(); });
  }
  void close() override { link_->close(); }
  void send(const LinkTarget& target, std::span<const std::uint8_t> request) override {
    watched([&] { link_->send(target, request); });
  }
  bool receive(Bytes& response, std::chrono::milliseconds timeout) override {
    const bool came = watched([&] { return link_->receive(response, timeout); });
    if (came) backOff_.succeeded();
    return came;
  }
  std::vector<LinkTarget> findEcus() override {
    return watched([this] { return link_->findEcus(); });
  }
  std::string silence() const override { return link_->silence(); }
  bool takesSeveralPids(const LinkTarget& target) const override { return link_->takesSeveralPids(target); }
  void setTextHook(TextHook hook) override { link_->setTextHook(std::move(hook)); }
  std::optional<std::int64_t> answererOf(const LinkTarget& target) const override {
    return link_->answererOf(target);
  }
  bool readUnasked(const LinkTarget& target) override {
    return watched([&] { return link_->readUnasked(target); });
  }

 private:
  std::unique_ptr<Link> link_;
  BackOff backOff_;
};

}  // namespace tarnlog::host
