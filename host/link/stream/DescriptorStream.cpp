#include "host/link/stream/DescriptorStream.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kIdlePeriod = 20ms;

bool wouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

timespec toTimespec(std::chrono::nanoseconds time) {
  return {static_cast<time_t>(time / 1s), static_cast<long>((time % 1s).count())};
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) ::close(number_);
}

void DescriptorStream::fail(const std::string& text) const {
  throw TarnError(1, "Link", name_ + ": " + text);
}

void DescriptorStream::failWith(int error) const {
  if (error == EPIPE || error == ECONNRESET) fail("the other end is gone");
  fail(std::generic_category().message(error));
}

void DescriptorStream::idleIfDue(std::chrono::milliseconds ahead) {
  if (clock_.now() + ahead < nextIdle_) return;
  idle();
  nextIdle_ = clock_.now() + kIdlePeriod;
}

bool DescriptorStream::wait(short events, Moment deadline) {
  for (;;) {
    idleIfDue();
    const Moment now = clock_.now();
    pollfd watched{descriptor_.number(), events, 0};
    const timespec limit = toTimespec(std::max(Moment(0), std::min(deadline, nextIdle_) - now));
    const int ready = ::ppoll(&watched, 1, &limit, nullptr);
    if (ready > 0) return true;
    if (ready < 0 && errno != EINTR) failWith(errno);
    if (clock_.now() >= deadline) return false;
  }
}

std::ptrdiff_t DescriptorStream::writeSome(std::span<const std::uint8_t> bytes) {
  return ::write(descriptor_.number(), bytes.data(), bytes.size());
}

void DescriptorStream::write(std::span<const std::uint8_t> bytes) {
  if (!descriptor_) fail("is not open");
  const Moment deadline = clock_.now() + kPatience;
  while (!bytes.empty()) {
    const std::ptrdiff_t written = writeSome(bytes);
    if (written >= 0)
      bytes = bytes.subspan(static_cast<std::size_t>(written));
    else if (!wouldBlock(errno))
      failWith(errno);
    else if (!wait(POLLOUT, deadline))
      fail("takes no more bytes");
  }
}

std::ptrdiff_t DescriptorStream::readSome(std::span<std::uint8_t> into) {
  return ::read(descriptor_.number(), into.data(), into.size());
}

/// Below 0 when no byte has come, 0 when none will.
std::ptrdiff_t DescriptorStream::takeSome(std::span<std::uint8_t> into) {
  const std::ptrdiff_t count = readSome(into);
  if (count < 0 && !wouldBlock(errno)) failWith(errno);
  return count;
}

std::size_t DescriptorStream::read(std::span<std::uint8_t> into, Moment deadline) {
  if (!descriptor_) fail("is not open");
  // Before each request links look for what has come: that is to cost no poll(2).
  if (clock_.now() >= deadline)
    if (const std::ptrdiff_t count = takeSome(into); count != 0)
      return static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 0));
  for (;;) {
    const bool ready = wait(POLLIN, deadline);
    const std::ptrdiff_t count = takeSome(into);
    if (count > 0) return static_cast<std::size_t>(count);
    // A terminal whose other end is gone reads as ended or as EIO; a serial port with no byte as 0 too, but
    // then poll(2) had not called it ready.
    if (count == 0 && ready) fail("the other end is gone");
    if (!ready) return 0;
  }
}

}  // namespace tarnlog::host
