#include "publish/PublishMailbox.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

PublishMailbox::PublishMailbox() : wake_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
  if (wake_ < 0) throw TarnError(errno, "PublishMailbox", std::strerror(errno));
}

PublishMailbox::~PublishMailbox() { ::close(wake_); }

void PublishMailbox::wake() const { static_cast<void>(::eventfd_write(wake_, 1)); }

void PublishMailbox::follow(std::string_view path, std::uint64_t till) {
  {
    const std::lock_guard lock(mutex_);
    if (orders_.live == path && orders_.till == till) return;
    if (orders_.live != path) {
      // The thread may not have seen the one before: looking up a name can hold it for long.
      if (!orders_.live.empty()) orders_.added.push_back(orders_.live);
      orders_.live = path;
    }
    orders_.till = till;
    orders_.closed = false;
  }
  wake();
}

void PublishMailbox::close() {
  {
    const std::lock_guard lock(mutex_);
    orders_.closed = true;
  }
  wake();
}

void PublishMailbox::add(const std::string& path) {
  {
    const std::lock_guard lock(mutex_);
    orders_.added.push_back(path);
  }
  wake();
}

void PublishMailbox::end(Time at) {
  {
    const std::lock_guard lock(mutex_);
    orders_.end = at;
  }
  wake();
}

std::vector<PublishMailbox::Notice> PublishMailbox::takeNotices() {
  const std::lock_guard lock(mutex_);
  return std::exchange(notices_, {});
}

bool PublishMailbox::isOver() const {
  const std::lock_guard lock(mutex_);
  return over_;
}

PublishMailbox::Orders PublishMailbox::takeOrders() {
  eventfd_t count = 0;
  static_cast<void>(::eventfd_read(wake_, &count));
  const std::lock_guard lock(mutex_);
  Orders orders = orders_;
  orders_.added.clear();
  return orders;
}

void PublishMailbox::tell(Notice notice) {
  const std::lock_guard lock(mutex_);
  notices_.push_back(std::move(notice));
}

bool PublishMailbox::isWhole() const {
  const std::lock_guard lock(mutex_);
  return whole_;
}

void PublishMailbox::setOver(bool whole) {
  const std::lock_guard lock(mutex_);
  over_ = true;
  whole_ = whole;
}

}  // namespace tarnlog
