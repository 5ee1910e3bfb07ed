#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/trace/Trace.h"
#include "platform/files/FileSystem.h"

namespace tarnlog::host {

/// Another link, with all that goes over it written down, each line as it happens, and what an adapter is
/// sent and says as remarks. A trace that cannot be written any more is given up; the link goes on.
class TraceLink : public Link {
 public:
  /// `file` takes the lines. `clock` must outlive the link.
  TraceLink(std::unique_ptr<Link> link, LinkClock& clock, std::unique_ptr<FileStream> file);

  const std::string& obstacle() const override { return link_->obstacle(); }
  std::string silence() const override { return link_->silence(); }
  bool takesSeveralPids(const LinkTarget& target) const override { return link_->takesSeveralPids(target); }
  std::size_t mostIdentifiers(const LinkTarget& target) const override {
    return link_->mostIdentifiers(target);
  }
  std::int64_t answererOf(const LinkTarget& target) const override { return link_->answererOf(target); }
  bool matchesAnswers() const override { return link_->matchesAnswers(); }
  bool isComing(std::int64_t answerer) const override { return link_->isComing(answerer); }
  bool sideBySide() const override { return link_->sideBySide(); }
  std::string adapterName() const override { return link_->adapterName(); }
  const ServiceCounts& servicesSent() const override { return link_->servicesSent(); }

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;
  /// The search itself is not written down: what the ECUs found are asked then is.
  std::vector<LinkTarget> doFindEcus() override;

 private:
  void write(TraceEntry& entry);
  void nameAnswerer(TraceEntry& entry);
  void writeText(TraceEntry::Kind kind, const std::string& text);
  void writeLine(const std::string& line);
  std::chrono::microseconds sinceStart() const;
  template <class Step>
  auto watched(Step&& step);

  std::unique_ptr<Link> link_;
  LinkClock& clock_;
  std::unique_ptr<FileStream> file_;
  std::optional<Moment> start_;
  std::map<std::int64_t, LinkTarget> asked_;  ///< by answerer
  std::int64_t newest_ = 0;                   ///< who was asked last
};

}  // namespace tarnlog::host
