#include <fcntl.h>
#include <gmock/gmock.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <string>
#include <utility>
#include <vector>

#include "apps/common/NonWaitingStream.h"
#include "apps/common/RepeatedLines.h"
#include "apps/common/StandardStreams.h"
#include "apps/common/TerminalText.h"
#include "tests/support/PseudoTerminal.h"
#include "tests/support/SteppedClock.h"

namespace tarnlog {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// What the reader finds now.
std::string readFrom(int reader) {
  ::fcntl(reader, F_SETFL, O_NONBLOCK);
  std::string text;
  std::array<char, 4096> bytes{};
  for (ssize_t count = 0; (count = ::read(reader, bytes.data(), bytes.size())) > 0;)
    text.append(bytes.data(), static_cast<std::size_t>(count));
  return text;
}

std::string line(int number) { return std::string(90, '.') + std::to_string(number) + "\n"; }

// A log pipe that nobody read stopped the recording; two signals did not end it.
TEST(NonWaitingStream, KeepsDropsAndCountsWhatAPipeDoesNotTake) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  ::fcntl(ends[1], F_SETPIPE_SZ, 4096);
  const int flags = ::fcntl(ends[1], F_GETFL);
  NonWaitingStream stream(ends[1], 1000);
  for (int i = 0; i < 100; ++i) stream.write(line(i));
  EXPECT_FALSE(stream.empty());
  EXPECT_EQ(::fcntl(ends[1], F_GETFL), flags) << "the shell may share them";

  std::string read;
  const auto readOn = [&] {
    for (int i = 0; i < 3; ++i) {
      read += readFrom(ends[0]);
      stream.flush();
    }
  };
  readOn();
  stream.write("on it goes\n");
  readOn();
  EXPECT_THAT(read, StartsWith(line(0) + line(1)));
  EXPECT_THAT(read, EndsWith(" lines not shown\non it goes\n"));
  const auto lines = std::count(read.begin(), read.end(), '\n') - 2;
  EXPECT_THAT(read, HasSubstr("... " + std::to_string(100 - lines) + " lines not shown"));

  for (int i = 0; i < 100; ++i) stream.write(line(i));
  ::close(ends[0]);
  std::signal(SIGPIPE, SIG_IGN);
  stream.wait();
  EXPECT_TRUE(stream.empty()) << "nobody is left to read";
  ::close(ends[1]);
}

// Ctrl+S in the terminal made a hole in the record.
TEST(NonWaitingStream, GoesOnWithoutATerminalThatIsStopped) {
  const int master = test::openPseudoTerminal();
  if (master < 0) GTEST_SKIP() << "this machine gives no pseudo-terminal";
  const int terminal = ::open(::ptsname(master), O_RDWR | O_NOCTTY);
  NonWaitingStream stream(terminal, 1000);
  ::tcflow(terminal, TCOOFF);
  for (int i = 0; i < 100; ++i) stream.write(line(i));
  EXPECT_FALSE(stream.empty());
  ::tcflow(terminal, TCOON);
  stream.wait();
  const std::string read = readFrom(master);
  EXPECT_THAT(read, StartsWith(std::string(90, '.') + "0\r\n"));
  EXPECT_THAT(read, EndsWith("lines not shown\r\n"));
  ::close(terminal);
  ::close(master);
}

TEST(RepeatedLines, CountsWhatComesAgainWithinAWhile) {
  test::SteppedClock clock;
  std::vector<std::string> printed;
  RepeatedLines lines(clock, [&](std::string_view each) { printed.emplace_back(each); });
  const auto take = [&] { return std::exchange(printed, {}); };

  for (int i = 0; i < 38; ++i) lines.add("19:05:0" + std::to_string(i % 10) + " Send error");
  lines.tellOverdue();
  lines.add("19:05:08 Stop record");
  EXPECT_THAT(take(),
              ElementsAre("19:05:00 Send error", "19:05:07 Send error (37 times)", "19:05:08 Stop record"));

  for (int i = 0; i < 3; ++i) {
    lines.add("init error A");
    lines.add("init error B");
  }
  clock.step(6000);
  lines.tellOverdue();
  EXPECT_THAT(take(), ElementsAre("init error A", "init error B", "init error A (2 times)",
                                  "init error B (2 times)"));

  clock.step(6000);
  lines.add("init error A");
  clock.step(6000);
  lines.add("init error A");
  EXPECT_THAT(take(), ElementsAre("init error A", "init error A")) << "now and then is no flood";
}

// A recorder started with closed streams (cron jobs, daemons) wrote its log between the rows of the record
// file.
TEST(StandardStreams, NoFileTakesThePlaceOfAClosedStream) {
  EXPECT_EXIT(
      {
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        openClosedStandardStreams();
        ::_exit(::open("/dev/null", O_WRONLY) > STDERR_FILENO ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

// An adapter could clear the screen, or set the terminal's keys, with what it answers.
TEST(TerminalText, ShowsControlCharactersAsDigits) {
  EXPECT_EQ(printableLine("a\x1B[2J\n\t\x7F"), "a\\u001B[2J\\u000A\\u0009\\u007F");
  EXPECT_EQ(printableText("12 °C\n\t\xC2\x9B\x9B"), "12 °C\n\t\\u009B\\x9B");
  EXPECT_EQ(printableLine("\xE2\x82"), "\\xE2\\x82") << "a character that is cut off";
}

}  // namespace
}  // namespace tarnlog
