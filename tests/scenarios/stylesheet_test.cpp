#include <gmock/gmock.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "SourceDir.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/TempFolder.h"

using namespace tarnlog;
using namespace tarnlog::test;

namespace {

/// What a browser would make of the document with the stylesheet that is installed.
std::string pageOf(const std::string& document) {
  const TempFolder folder;
  std::ofstream(folder / "file.xml") << document;
  const std::string command =
      "xsltproc --nonet " TARNLOG_SOURCE_DIR "/share/tarnlog.xsl " + folder / "file.xml" + " 2>&1";
  std::FILE* const output = popen(command.c_str(), "r");
  std::string page;
  for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) page += static_cast<char>(c);
  EXPECT_EQ(pclose(output), 0) << page;
  return page;
}

class Stylesheet : public testing::Test {
 protected:
  void SetUp() override {
    if (std::system("command -v xsltproc >/dev/null") != 0) GTEST_SKIP() << "xsltproc is not installed";
  }
};

}  // namespace

TEST_F(Stylesheet, ShowsWhatTheWritersWrite) {
  Scenario car({.speed = "0:12.25 1100:60.5 1200:61 1300:100",
                .data = {"Status/Speed", "Status/Température"},
                .start = "rising 49.5",
                .format = ".xml",
                .prefix = "p_",
                .locale = kCommaLocale});
  car.parameters->Item(std::size_t{1})->SetGraph("v", false, 0, 200, 500, 0x0080FF);
  car.parameters->SaveXmlConfiguration(car.files, "/rec/braking.xml", "tarnlog.xsl");
  const std::string configuration = pageOf(car.files.files["/rec/braking.xml"]);
  for (const char* part :
       {"<h1>braking.xml</h1>", "when Speed rises through 49.5 km/h", "background:rgb(255,128,0)",
        "Engine<span class=\"quiet\"> 0x10</span>", "graph “v”, 0 to 200, 500 points"})
    EXPECT_THAT(configuration, testing::HasSubstr(part));

  car.run("1000 1100 1200 1300");
  car.end();
  const std::string record = pageOf(car.files.files["/rec/p_16-11-26_19h05mn08.xml"]);
  for (const char* part :
       {"<h1>p_16-11-26_19h05mn08.xml</h1>",
        "<th class=\"number\">Température<span class=\"quiet\"> °C</span></th>",
        "<td>Start</td><td class=\"number\">60,5</td>", "d=\"M0,139.5h0L500,139L1000,100\""})
    EXPECT_THAT(record, testing::HasSubstr(part));
}

TEST_F(Stylesheet, KeepsPeaksAndGapsOfLongRecordsAndEndsTheTable) {
  const std::string head =
      "<Tarnlog2000><Description>Data file</Description><Date/><Datas><Data index='1' name='Speed'>"
      "<Scope type='Graph'><Graph axeYauto='1' color='0'/></Scope></Data></Datas>";
  std::string record = head;
  for (int i = 0; i <= 20000; ++i) {
    const bool rests = i >= 5000 && i < 10000;
    const std::string cell = i == 3001 ? "1000" : i == 17003 ? "-1000" : rests ? "---" : "0";
    const int time = i + (i >= 15000 ? 20000 : 0);
    record += "<row Time='" + std::to_string(time) + "' C1='" + cell + "'/>";
  }
  const std::string page = pageOf(record + "</Tarnlog2000>");
  EXPECT_THAT(page, testing::HasSubstr("after 10,000 of 20,001 rows"));
  EXPECT_THAT(page, testing::Not(testing::HasSubstr("<td class=\"number\">10000</td>")));
  const std::size_t begin = page.find("d=\"M");
  const std::string curve = page.substr(begin, page.find('"', begin + 3) - begin);
  for (const char* point :
       {"d=\"M0,100h0", "L75,0L", "L125,100M250,100h0", "L375,100M875,100h0", "L925.1,200L"})
    EXPECT_THAT(curve, testing::HasSubstr(point));
  EXPECT_LT(curve.size(), 30000U);
  // Four rows are few enough to draw them all.
  EXPECT_THAT(pageOf(head + "<row Time='0' C1='0'/><row Time='1' C1='1'/><row Time='2' C1='3'/>"
                            "<row Time='3' C1='4'/></Tarnlog2000>"),
              testing::HasSubstr("d=\"M0,200h0L333.3,150L666.7,50L1000,0\""));
}
