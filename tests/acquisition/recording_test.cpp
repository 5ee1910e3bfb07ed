#include <gmock/gmock.h>

#include "acquisition/RollingBuffer.h"
#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using test::ScriptedData;
using testing::ElementsAre;

// A datum that could not be read cost the whole row, and a recording with an armed stop never ended.
TEST(Recording, GoesOnAroundADatumThatCannotBeRead) {
  AcqRig rig;
  ScriptedData& other = rig.status.addData("Other", ferrox3::kDouble);
  rig.add(other);
  rig.recordFrom(50);
  rig.parameters->stopTrigger->prepost = 1;
  rig.start();
  rig.run("1000:0");
  rig.speed.raisingAt("value");
  rig.run("1100:99");
  EXPECT_FALSE(rig.acq.startPending() || rig.acq.Recording());
  rig.speed.raisingAt("");
  rig.run("1200:60");
  other.raisingAt("value").setValue(7.0);
  rig.run("1300:61");
  rig.acq.ToggleRecording();
  rig.run("1400:62");
  EXPECT_EQ(rig.screen.rows[1].value, "7") << "its text can be read";
  rig.speed.raisingAt("valueText");
  rig.run("1500:63");
  EXPECT_EQ(rig.screen.rows[0].value, "---");
  rig.speed.raisingAt("");
  rig.run("1600:63 1700:64");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60|0", "0.1|\"\"|61|---", "0.2|\"Stop\"|62|---",
                                            "0.3|\"\"|63|---", "0.4|\"\"|63|---"));
  EXPECT_EQ(rig.screen.rows[0].value, "64");
  EXPECT_FALSE(rig.acq.Recording());
}

// The schedule of period 0 stands still: half a turn of the clock later it once seemed to lie ahead, and
// times were below 0 from then on.
TEST(Recording, EveryCycleIsARowAlsoAfterWeeks) {
  AcqRig rig;
  rig.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  rig.parameters->stopTrigger->timeSeconde = 2147000;
  rig.start();
  rig.run("1000:0");
  rig.acq.ToggleRecording();
  rig.run("1100:1 1200:2 2000000000:3 2200001000:4");
  EXPECT_THAT(rig.recordRows(),
              ElementsAre("0|\"Start\"|0", "0.2|\"\"|2", "1999999|\"\"|3", "2200000|\"Stop\"|4"));
  EXPECT_EQ(rig.screen.timePanel, "2200000");
}

TEST(ValueList, SkipsWhatTheSessionLacksAndWritesOnlyChanges) {
  AcqRig rig;
  auto& load = rig.status.addData("Load", ferrox3::kInteger, "%");
  rig.add(rig.status.addData("Lost")).DataName = "Elsewhere";
  rig.add(load);
  rig.start();
  ASSERT_EQ(rig.screen.rows.size(), 2U);
  EXPECT_EQ(rig.screen.rows[1].text + rig.screen.rows[1].unit, "Engine : Load%");
  rig.run("1000:5 1100:5 1200:5");
  EXPECT_EQ(rig.screen.rows[0].written, 1);
  load.setValue(std::int32_t{7}, "seven");
  rig.run("1300:6");
  EXPECT_EQ(rig.screen.rows[0].value + " " + rig.screen.rows[1].value, "6 seven");
  EXPECT_EQ(rig.screen.rows[1].written, 2);
}

TEST(ValueList, AChangeWithinTheQuietTimeIsWrittenAfterIt) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.recordFrom(50);
  rig.start();
  rig.run("1000:0 1100:60 1300:60 1900:61");
  EXPECT_EQ(rig.screen.rows[0].value, "60") << "no row is due, but soon";
  rig.run("2100:61");
  EXPECT_EQ(rig.screen.rows[0].value, "61");
}

std::string textOf(RollingBuffer& buffer, Milliseconds t0, const char* mark) {
  test::MemoryFileSystem files;
  TextStream stream(files.openForAppending("f"));
  buffer.WriteBufferToFile(stream, t0, mark);
  return files.files["f"];
}

RollingBuffer filled(std::int32_t rows, std::initializer_list<Milliseconds> times) {
  RollingBuffer buffer(',');
  buffer.Create(2, rows);
  for (const Milliseconds time : times) {
    buffer.AddRow(time);
    buffer.SetData(1, std::to_string(time));
    buffer.SetData(2, "x");
  }
  return buffer;
}

TEST(RollingBuffer, WritesTheNewestRowsOldestFirstWithTheMarkOnTheLast) {
  RollingBuffer buffer = filled(3, {10, 20, 30, 40, 50});
  EXPECT_EQ(textOf(buffer, 50, "Start"),
            "-0,02\t\"\"\t30\tx\r\n"
            "-0,01\t\"\"\t40\tx\r\n"
            "0\t\"Start\"\t50\tx\r\n");
  RollingBuffer exactlyFull = filled(3, {10, 20, 30});
  EXPECT_EQ(textOf(exactlyFull, 30, ""), "-0,02\t\"\"\t10\tx\r\n-0,01\t\"\"\t20\tx\r\n0\t\"\"\t30\tx\r\n");
}

TEST(RollingBuffer, NoCellBreaksARow) {
  RollingBuffer buffer;
  buffer.Create(1, 1);
  EXPECT_EQ(textOf(buffer, 0, "Start"), "") << "nothing while it is empty";
  buffer.AddRow(0);
  buffer.SetData(1, "A\tA\r\nA");
  EXPECT_EQ(textOf(buffer, 0, ""), "0\t\"\"\tA A  A\r\n");
}

}  // namespace
}  // namespace tarnlog
