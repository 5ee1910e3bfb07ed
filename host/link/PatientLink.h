#pragma once

#include <memory>
#include <string>
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
    } catch (const TarnError&) {
      backOff_.failed();
      throw;
    }
  }

 public:
  /// `bundles` false: PIDs and data identifiers are asked for one by one.
  PatientLink(std::unique_ptr<Link> link, LinkClock& clock, bool bundles = true)
      : link_(std::move(link)), bundles_(bundles), backOff_(clock) {
    link_->setIdleHook([this] { idle(); });
    link_->setStopQuestion([this] { return stopAsked(); });
  }

  const std::string& obstacle() const override { return link_->obstacle(); }
  std::string silence() const override { return link_->silence(); }
  bool takesSeveralPids(const LinkTarget& target) const override {
    return bundles_ && link_->takesSeveralPids(target);
  }
  std::size_t mostIdentifiers(const LinkTarget& target) const override {
    return bundles_ ? link_->mostIdentifiers(target) : 1;
  }
  void setTextHook(TextHook hook) override { link_->setTextHook(std::move(hook)); }
  std::int64_t answererOf(const LinkTarget& target) const override { return link_->answererOf(target); }
  bool matchesAnswers() const override { return link_->matchesAnswers(); }
  bool isComing(std::int64_t answerer) const override { return link_->isComing(answerer); }
  bool sideBySide() const override { return link_->sideBySide(); }
  std::string adapterName() const override { return link_->adapterName(); }
  const ServiceCounts& servicesSent() const override { return link_->servicesSent(); }

 protected:
  void doOpen() override {
    backOff_.wait([this] {
      idle();
      if (stopAsked()) throw TarnError(1, "Link", "stopped before the next attempt");
    });
    watched([this] { link_->open(); });
  }
  void doClose() override { link_->close(); }
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override {
    return watched([&] { return link_->send(target, request); });
  }
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override {
    const Received received = watched([&] { return link_->receive(response, timeout); });
    setAnswerer(link_->answerer());
    if (received == Received::response) backOff_.succeeded();
    return received;
  }
  std::vector<LinkTarget> doFindEcus() override {
    return watched([this] { return link_->findEcus(); });
  }

 private:
  std::unique_ptr<Link> link_;
  bool bundles_;
  BackOff backOff_;
};

}  // namespace tarnlog::host
