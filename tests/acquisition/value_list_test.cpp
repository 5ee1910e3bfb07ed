#include <gmock/gmock.h>

#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;

TEST(ValueList, SkipsWhatTheSessionLacksAndWritesOnlyChanges) {
  AcqRig rig;
  auto& load = rig.status.addData("Load", ferrox3::kInteger, "%");
  rig.add(rig.status.addData("Lost")).DataName = "Elsewhere";
  rig.add(load);
  rig.start();
  ASSERT_EQ(rig.screen.rows.size(), 2U);
  EXPECT_EQ(rig.screen.rows[1].text, "Engine : Load");
  EXPECT_EQ(rig.screen.rows[1].unit, "%");
  rig.run("1000:5 1100:5 1200:5");
  EXPECT_EQ(rig.screen.rows[0].written, 1);
  load.setValue(std::int32_t{7}, "seven");
  rig.run("1300:6");
  EXPECT_EQ(rig.screen.rows[0].value, "6");
  EXPECT_EQ(rig.screen.rows[1].value, "seven");
  EXPECT_EQ(rig.screen.rows[1].written, 2);
}

TEST(ValueList, AChangeWithinTheQuietTimeIsWrittenAfterIt) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60 1300:60 1900:61");
  EXPECT_EQ(rig.screen.rows[0].value, "60") << "no row is due, but soon";
  rig.run("2100:61");
  EXPECT_EQ(rig.screen.rows[0].value, "61");
}

TEST(AcqLog, KeepsItsFirstLineAndTheNewestTwenty) {
  AcqRig rig;
  std::vector<std::string> added;
  rig.acq.setLogAddedHandler([&](const std::string& line) { added.push_back(line); });
  for (int i = 1; i <= 25; ++i) rig.acq.addLog(std::to_string(i));
  ASSERT_EQ(rig.screen.log.size(), 21U);
  EXPECT_EQ(rig.screen.log[0], "19:05:07 1");
  EXPECT_EQ(rig.screen.log[1], "19:05:07 6");
  EXPECT_EQ(added.size(), 25U);
}

}  // namespace
}  // namespace tarnlog
