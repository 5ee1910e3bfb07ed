#include "platform/time/RunLoop.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "platform/time/Clock.h"

namespace tarnlog {
namespace {

volatile std::sig_atomic_t stopAsked = 0;
std::array<int, 2> wakePipe{};

TEST(RunLoop, TicksUntilQuitAlsoWhenTimersAreMadeAndReleasedInATick) {
  RunLoop loop;
  int ticks = 0;
  int wakes = 0;
  loop.setWakeHandler([&] { ++wakes; });
  const auto first = loop.createTimer();
  auto second = loop.createTimer();
  std::unique_ptr<Timer> third;
  first->setInterval(1);
  first->setTickHandler([&] {
    first->setEnabled(false);
    first->setEnabled(++ticks < 3);
    if (ticks < 3) return;
    second.reset();
    third = loop.createTimer();
    third->setTickHandler([&] { loop.quit(); });
    third->setEnabled(true);
  });
  first->setEnabled(true);
  loop.run();
  EXPECT_EQ(ticks, 3);
  EXPECT_GE(wakes, 3);
}

TEST(RunLoop, SignalBetweenTheLookAndTheWaitIsNotLost) {
  ASSERT_EQ(pipe(wakePipe.data()), 0);
  const auto before = std::signal(SIGUSR1, [](int) {
    stopAsked = 1;
    [[maybe_unused]] const ssize_t written = write(wakePipe[1], "", 1);
  });
  RunLoop loop;
  loop.setWakeDescriptor(wakePipe[0]);
  bool raised = false;
  loop.setWakeHandler([&] {
    if (stopAsked != 0) return loop.quit();
    if (!raised) std::raise(SIGUSR1);
    raised = true;
  });
  loop.run();  // without a timer it waits for ever, unless the signal gets through
  std::signal(SIGUSR1, before);
  for (const int end : wakePipe) close(end);
  EXPECT_TRUE(raised);
}

TEST(Clock, DifferencesPassTheWrap) {
  EXPECT_EQ(millisecondsBetween(0xFFFFFFF0U, 0x10U), 32);
  EXPECT_EQ(millisecondsBetween(0x10U, 0xFFFFFFF0U), -32);
}

}  // namespace
}  // namespace tarnlog
