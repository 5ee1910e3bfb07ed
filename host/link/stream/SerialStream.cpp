#include "host/link/stream/SerialStream.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tarnlog::host {
namespace {

constexpr std::array<std::pair<int, speed_t>, 11> kRates{{{9600, B9600},
                                                          {19200, B19200},
                                                          {38400, B38400},
                                                          {57600, B57600},
                                                          {115200, B115200},
                                                          {230400, B230400},
                                                          {460800, B460800},
                                                          {500000, B500000},
                                                          {921600, B921600},
                                                          {1000000, B1000000},
                                                          {2000000, B2000000}}};

auto rateOf(std::int64_t baud) {
  return std::find_if(kRates.begin(), kRates.end(), [&](const auto& rate) { return rate.first == baud; });
}

}  // namespace

bool SerialStream::isBaudRate(std::int64_t baud) { return rateOf(baud) != kRates.end(); }

void SerialStream::open() {
  // Without O_NONBLOCK, opening would wait for a modem's carrier.
  Descriptor port(::open(path_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!port) {
    if (errno == EACCES) fail("may not be opened: add yourself to the group that owns it (dialout)");
    failWith(errno);
  }
  termios settings{};
  if (::tcgetattr(port.number(), &settings) != 0) fail("is not a serial port");
  ::cfmakeraw(&settings);
  settings.c_cflag |= CLOCAL | CREAD;
  settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  ::cfsetspeed(&settings, rateOf(baud_)->second);
  if (::tcsetattr(port.number(), TCSANOW, &settings) != 0) failWith(errno);
  // Two programs on one adapter take each other's answers.
  ::ioctl(port.number(), TIOCEXCL);
  ::tcflush(port.number(), TCIOFLUSH);
  setDescriptor(std::move(port));
}

/// False when the port still holds bytes after 50 ms.
bool SerialStream::awaitSent() {
  constexpr std::chrono::milliseconds kPause{5};
  int left = 0;
  const auto isStuck = [&] { return ::ioctl(descriptor(), TIOCOUTQ, &left) == 0 && left > 0; };
  for (int i = 0; i < 10 && isStuck(); ++i) clock().waitUntil(clock().now() + kPause, {});
  return !isStuck();
}

/// The system would hold the port for half a minute for bytes that a stuck adapter does not take.
void SerialStream::close() {
  if (!awaitSent()) ::tcflush(descriptor(), TCOFLUSH);
  DescriptorStream::close();
}

int SerialStream::rate() const {
  std::error_code error;
  const std::filesystem::path device = std::filesystem::weakly_canonical(path_, error);
  return device.filename().string().starts_with("rfcomm") ? 0 : baud_;
}

/// What was written leaves at the rate before. A port that lacks a rate takes the setting and keeps its own.
bool SerialStream::setRate(int bitsPerSecond) {
  const auto wanted = rateOf(bitsPerSecond);
  termios settings{};
  if (wanted == kRates.end() || ::tcgetattr(descriptor(), &settings) != 0) return false;
  const termios before = settings;
  awaitSent();
  ::cfsetspeed(&settings, wanted->second);
  const bool taken = ::tcsetattr(descriptor(), TCSANOW, &settings) == 0 &&
                     ::tcgetattr(descriptor(), &settings) == 0 && ::cfgetospeed(&settings) == wanted->second;
  if (!taken) ::tcsetattr(descriptor(), TCSANOW, &before);
  return taken;
}

}  // namespace tarnlog::host
