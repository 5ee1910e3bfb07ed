#include <algorithm>
#include <clocale>
#include <fstream>
#include <iterator>
#include <limits>
#include <locale>

#include "SourceDir.h"
#include "tests/config/ConfigurationFixture.h"

using namespace tarnlog;
using namespace tarnlog::test;

namespace {

using ConfigurationSave = ConfigurationFixture;

struct Comma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

TEST_F(ConfigurationSave, ReadsBackWhatItWroteUnderAnyLocale) {
  // Every display, texts that need escaping, and numbers that a careless reader or writer damages.
  const auto add = [&](const char* function, const char* request, const char* name) -> oTarnScope& {
    return addScope(parameters,
                    *vehicle.session.findEcuByFunction(function)->findRequest(request)->findData(name));
  };
  parameters.userDescription = "  <fast> & \"slow\"\r\nsecond line\tend \xC3\xA9 ";
  parameters.startSession = "10 C0";
  parameters.recordingPeriod = 0;
  parameters.filePrefix = "a\tb\n'c'";
  parameters.fileFolder = "/rec/\xE2\x82\xAC";
  parameters.fileFormat = ".xml";
  parameters.initScenario->Add("Bleed", "Brakes", 40);
  parameters.initScenario->Add("Reset", "Engine", 16);
  parameters.initScenario->Add("Bleed", "Brakes", 40);
  *parameters.startTrigger = {0, oTarnTrigger::kChannel, -5, true, 60, -1, 0.1, 3};
  *parameters.stopTrigger = {1, oTarnTrigger::kTime, 3, true, 30, 1, 0, 0};
  add("Injection", "Status", "Speed").SetGraph("Speed > 0", false, -1e-7, 1.0 / 3, 200, 0x0000FF);
  add("Injection", "Status", "Load").SetGraphIndex(0x00FF00, 1);
  add("Injection", "Status", "Key").SetSlide("Key", 1e21, std::numeric_limits<double>::max(), -2147483647);
  add("ABS", "Wheels", "Front").SetGraphAxeX("", false, 5e-324, 0.5, 1);
  add("Injection", "Status", "Mode").SetNumeric("");
  add("Injection", "Status", "Raw");
  const std::string comment = parameters.userDescription;
  const std::string first = saved();
  parameters.filePrefix = parameters.startSession = parameters.userDescription = "";
  parameters.startTrigger->level = 7;
  const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // where there is one
  load(first);
  EXPECT_EQ(dropped() + droppedRequests(), "");
  EXPECT_EQ(items(), "Speed:G Load:I1 Key:B Front:X1 Mode:D Raw:N");
  EXPECT_EQ(parameters.userDescription + parameters.filePrefix, comment + "a\tb\n'c'");
  EXPECT_EQ(parameters.startTrigger->level, 0.1);
  EXPECT_EQ(parameters.Item("c2")->oTarnGraph()->AxeYmaxi, 1.0 / 3);
  EXPECT_EQ(parameters.Item("c4")->oTarnSlide()->maxi, std::numeric_limits<double>::max());
  EXPECT_EQ(parameters.Item("c2")->DeviceName, "Wheel sensor");
  const std::string second = saved();
  load(second);
  EXPECT_EQ(saved(), second);
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

TEST_F(ConfigurationSave, TheGuidesExampleIsWhatTheRecorderWrites) {
  std::ifstream guide(TARNLOG_SOURCE_DIR "/docs/configuration-file.md");
  const std::string page(std::istreambuf_iterator<char>(guide), {});
  const std::size_t start = page.find("```xml\n") + 7;
  const std::string example = page.substr(start, page.find("```", start) - start);
  load(example);
  EXPECT_EQ(dropped() + droppedRequests(), "");
  parameters.SaveXmlConfiguration(files, "/home/anna/braking.xml", "tarnlog.xsl");
  std::string written = files.files["/home/anna/braking.xml"];
  written.erase(std::remove(written.begin(), written.end(), '\r'), written.end());
  EXPECT_EQ(written, example);
}

TEST_F(ConfigurationSave, TriggersAreWrittenAsWhatTheyCanBe) {
  for (const auto& [start, stop, written] :
       {std::tuple(2, 2,
                   "<Trigger><Start prepost=\"0\" restart=\"1\" type=\"Manual\"/>"
                   "<Stop prepost=\"0\" type=\"Time\"><Time seconde=\"60\"/></Stop></Trigger>"),
        {3, -1, "<Trigger/>"}}) {
    parameters.startTrigger->typeTrigger = start;
    parameters.stopTrigger->typeTrigger = stop;
    std::string file = saved();
    std::erase_if(file, [](char c) { return c == '\t' || c == '\r' || c == '\n'; });
    EXPECT_NE(file.find(written), std::string::npos) << file;
  }
}
