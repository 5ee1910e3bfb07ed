#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// What the recorder and the thread that publishes tell each other. Neither waits for the other.
class PublishMailbox {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// What the thread is to know.
  struct Orders {
    std::string live;                  ///< the file that is being recorded; empty: none
    std::uint64_t till = 0;            ///< it is whole up to here
    bool closed = false;               ///< it gets no more
    std::vector<std::string> added{};  ///< whole files; given away once
    std::optional<Time> end{};         ///< nothing more comes; what is left then waits for another time
  };
  struct Notice {
    std::string text;
    bool trouble = false;  ///< else it is over
  };

  PublishMailbox();
  ~PublishMailbox();
  PublishMailbox(const PublishMailbox&) = delete;
  PublishMailbox& operator=(const PublishMailbox&) = delete;

  void follow(std::string_view path, std::uint64_t till);
  void close();
  void add(const std::string& path);
  void end(Time at);
  std::vector<Notice> takeNotices();
  bool isOver() const;
  bool isWhole() const;

  /// For the thread. It can be read from when there are new orders.
  int wakeDescriptor() const { return wake_; }
  Orders takeOrders();
  void tell(Notice notice);
  void setOver(bool whole);

 private:
  void wake() const;

  mutable std::mutex mutex_;
  Orders orders_;
  std::vector<Notice> notices_;
  bool over_ = false;
  bool whole_ = false;
  int wake_;
};

}  // namespace tarnlog
