#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "publish/PublishMailbox.h"
#include "publish/PublishWorker.h"

namespace tarnlog {

/// Publishes measurement files at an MQTT broker while the caller goes on. Nothing here waits.
class Publisher {
 public:
  using Notice = PublishMailbox::Notice;

  /// Raises a TarnError when a file of the access cannot be used.
  explicit Publisher(const PublishSetup& setup);
  /// What is on the way is left, and sent again another time.
  ~Publisher();
  Publisher(const Publisher&) = delete;
  Publisher& operator=(const Publisher&) = delete;

  /// This file is being recorded; it is whole up to this byte.
  void follow(std::string_view path, std::uint64_t till) { mailbox_->follow(path, till); }
  /// That one gets no more.
  void close() { mailbox_->close(); }
  /// A file that is whole already.
  void add(const std::string& path) { mailbox_->add(path); }
  /// Nothing more comes; what is not published in this time is left.
  void end(std::chrono::milliseconds patience) { mailbox_->end(std::chrono::steady_clock::now() + patience); }
  bool isOver() const { return mailbox_->isOver(); }
  /// When it is over: all was published.
  bool isWhole() const { return mailbox_->isWhole(); }

  /// What went wrong, or goes on again, since this was called last.
  std::vector<Notice> takeNotices() { return mailbox_->takeNotices(); }

 private:
  std::shared_ptr<PublishMailbox> mailbox_ = std::make_shared<PublishMailbox>();
};

}  // namespace tarnlog
