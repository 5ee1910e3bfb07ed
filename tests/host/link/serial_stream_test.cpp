#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "host/link/SystemLinkClock.h"
#include "host/link/stream/SerialStream.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"
#include "tests/support/PseudoTerminal.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;

std::string text(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

TEST(SerialStream, CarriesEveryByteAndNoticesAnAdapterThatIsGone) {
  SystemLinkClock clock;
  SerialStream missing("/dev/no-such-adapter", 38400, clock);
  EXPECT_EQ(test::failureOf([&] { missing.open(); }), "/dev/no-such-adapter: No such file or directory");

  Descriptor adapter(test::openPseudoTerminal());
  if (!adapter) GTEST_SKIP() << "this machine gives no pseudo-terminal";
  SerialStream port(::ptsname(adapter.number()), 38400, clock);
  port.open();

  const std::array<std::uint8_t, 4> question{'A', 'T', 'I', '\r'};
  port.write(question);
  std::array<std::uint8_t, 16> bytes{};
  ASSERT_EQ(::read(adapter.number(), bytes.data(), bytes.size()), 4);
  EXPECT_EQ(text(std::span(bytes).first(4)), "ATI\r");

  int idled = 0;
  port.setIdleHook([&] { ++idled; });
  EXPECT_EQ(port.read(bytes, clock.now() + 30ms), 0U);
  EXPECT_GE(idled, 1);

  // Bytes that a terminal would act on: end of file, interrupt, start and stop, carriage return.
  ASSERT_EQ(::write(adapter.number(), "\x04\x03\x11\x13\r\n>", 7), 7);
  EXPECT_EQ(port.read(bytes, clock.now() + 1s), 7U);
  EXPECT_EQ(text(std::span(bytes).first(7)), "\x04\x03\x11\x13\r\n>");

  // A terminal takes every rate and means none of them; Bluetooth is not even told.
  const auto rateOf = [&] {
    termios settings{};
    ::tcgetattr(adapter.number(), &settings);
    return ::cfgetospeed(&settings);
  };
  EXPECT_TRUE(port.setRate(500000));
  EXPECT_EQ(rateOf(), static_cast<speed_t>(B500000));
  EXPECT_FALSE(port.setRate(500001));
  EXPECT_EQ(rateOf(), static_cast<speed_t>(B500000));
  EXPECT_EQ(port.rate(), 38400);
  EXPECT_EQ(SerialStream("/dev/rfcomm0", 38400, clock).rate(), 0);

  adapter = Descriptor();
  EXPECT_THROW(port.read(bytes, clock.now() + 1s), TarnError);
}

}  // namespace
}  // namespace tarnlog::host
