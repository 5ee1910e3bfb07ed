#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "apps/tarn-record/ShowJson.h"
#include "apps/tarn-record/ShowText.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::record {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// Two recordings, the second one appended.
constexpr const char* kRecord =
    "time\tevent\t\"Engine\"\t\"Engine\"\t\"Engine\"\r\n"
    "16/11/26\t\t\"PID 0C\"\t\"PID 12\"\t\"PID 0D\"\r\n"
    "19:05:07\t\t\"Engine speed(rpm)\"\t\"Air\\\x1b[2J\"\t\"Lamp\"\r\n"
    "-1\t\"\"\t800\tOpen\t0\r\n"
    "0\t\"Start\"\t1000.5\tOpen\t0\r\n"
    "1\t\"\"\t---\tClosed\t1\r\n"
    "2.5\t\"event2\"\t1200\tOpen\t1\r\n"
    "4\t\"Stop\"\t800\t---\t0\r\n"
    "time\tevent\t\"Engine\"\r\n"
    "16/11/26\t\t\"PID 0C\"\r\n"
    "19:06:07\t\t\"Engine speed(rpm)\"\r\n"
    "0\t\"Start\"\t7\r\n";

TEST(ShowCommand, TellsFactsMarksFiguresAndHowLongLabelsStood) {
  const test::TempFolder folder;
  const std::string path = folder / "16-11-26_19h05mn07.txt";
  std::ofstream(path, std::ios::binary) << kRecord;
  const std::string all = showText(shownRecord({.input = path}), {});
  EXPECT_THAT(all, AllOf(HasSubstr("Began    2026-11-16 19:05:07\n"), HasSubstr("5 s, from -1 s to 4 s"),
                         HasSubstr("\n    0 s  Start\n  2.5 s  event2\n    4 s  Stop\n"),
                         HasSubstr("--- Recording 2 of 2 ---"), HasSubstr("5 rows; ")));
  EXPECT_THAT(all,
              HasSubstr("  Data          Unit  Values  Minimum  at s  Maximum  at s     Mean  Deviation\n"
                        "  Engine speed  rpm        4      800    -1     1200   2.5  950.125    191.529\n"
                        "  Lamp                     5        0    -1        1     1      0.4   0.547723\n"));
  EXPECT_THAT(all, HasSubstr("  Air\\\\u001B[2J\n"
                             "    Open    3.5 s  2 times  first at -1 s\n"
                             "    Closed  1.5 s     once  first at 1 s\n"
                             "  Lamp\n"
                             "    1  3 s     once  first at 1 s\n"
                             "    0  2 s  2 times  first at -1 s\n"));
  EXPECT_THAT(showText(shownRecord({.input = path, .from = 1, .till = 1.5, .data = {"Engine speed"}}), {}),
              HasSubstr("  Engine speed  rpm        0\n"));
  const ShowOptions narrow{.input = path, .data = {"Engine speed"}, .above = 1000};
  EXPECT_THAT(showText(shownRecord(narrow), 60), AllOf(HasSubstr("    maximum        1200  at 2.5 s\n"),
                                                       HasSubstr("    above 1000    2.5 s\n")));
  EXPECT_THAT(showText(shownRecord(narrow), {}),
              AllOf(HasSubstr("  Deviation  above 1000\n"), HasSubstr("    191.529       2.5 s\n")));

  const auto json = nlohmann::json::parse(showJson(shownRecord({path, 0, 2, {"PID 0C/Engine speed"}, 1000})));
  const auto& first = json["recordings"][0];
  EXPECT_EQ(first["data"].size(), 1U);
  EXPECT_EQ(first["data"][0]["maximum"], 1000.5);
  EXPECT_EQ(first["data"][0]["secondsAbove"], 1);
  EXPECT_TRUE(first["data"][0]["deviation"].is_null()) << "of one value";
  EXPECT_EQ(first["marks"].size(), 1U);
  EXPECT_EQ(durationText(179.96), "3 min 0 s");
  EXPECT_EQ(durationText(7199.9), "1 h 59 min 59.9 s");
  EXPECT_EQ(durationText(1e300), "1e+300 s");
}

TEST(ShowCommand, RefusesWhatItCannotShow) {
  const test::TempFolder folder;
  const std::string path = folder / "16-11-26_19h05mn07.txt";
  std::ofstream(path, std::ios::binary) << kRecord;
  const auto failure = [](const ShowOptions& options) {
    return test::failureOf([&] { shownRecord(options); });
  };
  EXPECT_THAT(failure({.input = path, .data = {"Engine sped"}}), HasSubstr("did you mean Engine speed?"));
  EXPECT_THAT(failure({.input = path, .from = 3, .till = 2}), HasSubstr("--from is later than --till"));
  EXPECT_THAT(failure({.input = path, .from = 90}), HasSubstr("at most 4, where the record ends"));
  EXPECT_THAT(failure({.input = folder / "none.txt"}), HasSubstr("none.txt"));
  std::ofstream(path) << "";
  EXPECT_THAT(failure({.input = path}), HasSubstr(path));
}

}  // namespace
}  // namespace tarnlog::record
