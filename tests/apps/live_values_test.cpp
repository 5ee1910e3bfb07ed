#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "apps/tarn-record/DetailSink.h"
#include "apps/tarn-record/LiveLines.h"
#include "apps/tarn-record/LiveScreen.h"
#include "apps/tarn-record/LiveTable.h"
#include "tests/support/AcqRig.h"
#include "tests/support/PseudoTerminal.h"

namespace tarnlog::record {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// Takes lines while there is room.
struct Target : LineTarget {
  bool take(std::string_view lines) override {
    if (room) taken += lines;
    return room;
  }
  std::string taken;
  bool room = true;
};

TEST(LiveLines, TellChangesAndWhatWasLost) {
  Target target;
  LiveLines lines(target);
  test::AcqRig rig({&lines});
  rig.start();
  rig.run("1000:10 2000:10 3000:12.5");
  EXPECT_THAT(target.taken, HasSubstr("\tEngine/Status/Speed\t10\tkm/h\n"));
  EXPECT_EQ(std::count(target.taken.begin(), target.taken.end(), '\n'), 2);
  target.room = false;
  rig.run("4000:1 5000:2");
  target.room = true;
  target.taken.clear();
  rig.run("6000:3");
  EXPECT_THAT(target.taken, testing::StartsWith("... 2 lines not shown\n"));
  EXPECT_THAT(target.taken, testing::EndsWith("\tEngine/Status/Speed\t3\tkm/h\n"));
}

class Table : public testing::Test {
 protected:
  LiveTable& begin() {
    for (const char* name : {"Load", "A rather long name", "Key"}) {
      test::ScriptedData& data = rig.status.addData(name, ferrox3::kDouble, "%");
      data.setValue(7.0);
      rig.add(data);
    }
    rig.start();
    return *table;
  }
  test::SteppedClock clock;
  std::unique_ptr<LiveTable> table = std::make_unique<LiveTable>(clock);
  test::AcqRig rig{{table.get()}};
};

TEST_F(Table, FitsTheTerminal) {
  begin();
  rig.run("1000:100");
  EXPECT_THAT(table->draw(40, 10), ElementsAre("Speed               100 km/h", "Load                  7 %",
                                               "A rather long name    7 %", "Key                   7 %"));
  EXPECT_THAT(table->draw(40, 3),
              ElementsAre("Speed               100 km/h", "Load                  7 %", "... and 2 more"));
  EXPECT_THAT(table->draw(64, 10), ElementsAre("Speed               100 km/h    A rather long name    7 %",
                                               "Load                  7 %       Key                   7 %"));
  EXPECT_THAT(table->draw(12, 10), Contains("A rather lon"));
  EXPECT_THAT(table->draw(40, 0), ElementsAre());
}

TEST_F(Table, IsDrawnAtMostTenTimesASecond) {
  begin();
  rig.run("1000:1");
  EXPECT_TRUE(table->due());
  table->draw(80, 24);
  rig.run("1010:2");
  EXPECT_FALSE(table->due());
  clock.step(100);
  EXPECT_TRUE(table->due());
  table->draw(80, 24);
  clock.step(500);
  rig.run("1020:2");
  EXPECT_FALSE(table->due()) << "nothing changed";
  clock.step(500);
  EXPECT_TRUE(table->due()) << "the line of progress tells the time";
}

TEST(LiveScreen, DrawsInPlaceAndLeavesNothing) {
  const int master = test::openPseudoTerminal();
  if (master < 0) GTEST_SKIP() << "this machine gives no pseudo-terminal";
  const int terminal = ::open(::ptsname(master), O_RDWR | O_NOCTTY);
  const winsize narrow{.ws_row = 5, .ws_col = 4, .ws_xpixel = 0, .ws_ypixel = 0};
  ::ioctl(terminal, TIOCSWINSZ, &narrow);
  {
    LiveScreen screen(terminal);
    EXPECT_EQ(screen.size().height, 5U);
    screen.draw({"abc", "d"});
    screen.draw({"é"});
    screen.draw({"wider", "x"});  // as drawn before the terminal became narrower
    screen.erase();
    screen.erase();
  }
  ::close(terminal);
  // The system hands it over in pieces; the last read tells that the other end is closed.
  std::string read;
  char piece[200];
  for (ssize_t count = 0; (count = ::read(master, piece, sizeof piece)) > 0;)
    read.append(piece, static_cast<std::size_t>(count));
  EXPECT_EQ(read,
            "abc\033[K\r\r\nd\033[K\033[J"
            "\r\033[1Aé\033[K\033[J"
            "\rwider\033[K\r\r\nx\033[K\033[J"
            "\r\033[2A\033[J");
  ::close(master);
}

TEST(DetailSink, TellsWhatHelpsToFindAFault) {
  std::vector<std::string> lines;
  DetailSink details([&](const std::string& line) { lines.push_back(line); });
  test::AcqRig rig({&details});
  rig.start();
  rig.run("1000:1");
  rig.status.failing.next("no answer");
  rig.run("1500:1");
  EXPECT_THAT(lines, Contains("asks Engine (address 0x10, KWP2000): Status, frame 21 80, for 1 data"));
  EXPECT_THAT(lines, Contains("state: initialising the ECUs"));
  EXPECT_THAT(lines, Contains("state: polling"));
  EXPECT_THAT(lines, Contains(HasSubstr("Engine/Status failed after 0.000 s: ")));
}

}  // namespace
}  // namespace tarnlog::record
