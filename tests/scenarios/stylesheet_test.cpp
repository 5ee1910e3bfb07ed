#include <gmock/gmock.h>

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

}  // namespace

TEST(Stylesheet, ShowsWhatTheWritersWrite) {
  if (std::system("command -v xsltproc >/dev/null") != 0) GTEST_SKIP() << "xsltproc is not installed";
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
        "<td>Start</td><td class=\"number\">60,5</td>", "points=\"0,139.5 500,139 1000,100 \""})
    EXPECT_THAT(record, testing::HasSubstr(part));
}
