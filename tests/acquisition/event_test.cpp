#include <gmock/gmock.h>

#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using testing::ElementsAre;

TEST(UserEvent, HasTheCyclesBeforeAndTwentyAfter) {
  AcqRig rig;
  rig.start();
  EXPECT_TRUE(rig.acq.HandleHotKey(32));
  EXPECT_EQ(rig.screen.beeps, 0) << "before the first polling cycle";
  for (int i = 1; i <= 25; ++i) rig.cycleAt(static_cast<Milliseconds>(1000 + 10 * i), i);
  rig.acq.RecordUserEvent();
  rig.acq.RecordUserEvent();
  EXPECT_EQ(rig.screen.beeps, 1) << "one event at a time";
  EXPECT_EQ(rig.screen.logTexts().back(), "User event");
  for (int i = 26; i <= 50; ++i) rig.cycleAt(static_cast<Milliseconds>(1000 + 10 * i), i);
  const std::string path = "/rec/event_16-11-26__19h05mn08.txt";
  const auto rows = test::rowsOf(rig.files.files[path], 1);
  ASSERT_EQ(rows.size(), 40U);
  EXPECT_EQ(rig.files.files[path].substr(0, 28), "time\tevent\t\"Speed(km/h)\"\r\n-0");
  EXPECT_EQ(rows.front(), "-0.19|\"\"|6");
  EXPECT_EQ(rows[19], "0|\"event\"|25");
  EXPECT_EQ(rows.back(), "0.2|\"\"|45");
  EXPECT_THAT(rig.finished, ElementsAre(path));
  EXPECT_EQ(rig.screen.eventCaption, "Event");
}

TEST(UserEvent, ThatCannotBeOpenedActivatesNothing) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60");
  rig.files.openError = "Permission denied";
  rig.acq.RecordUserEvent();
  EXPECT_EQ(rig.screen.recordPanel, "Open error : Permission denied");
  rig.files.openError.clear();
  rig.run("1200:61");
  EXPECT_EQ(rig.recordRows().back(), "0.1|\"\"|61");
  rig.acq.RecordUserEvent();
  EXPECT_EQ(rig.screen.eventCaption, "Event 1");
}

}  // namespace
}  // namespace tarnlog
