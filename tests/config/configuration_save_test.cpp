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

class ConfigurationSave : public ConfigurationFixture {
 protected:
  oTarnScope& add(const std::string& ecu, const std::string& request, const std::string& name) {
    const XmlElement element = FindSessionData(vehicle.catalogue, ecu, request, name, -1);
    auto scope = std::make_unique<oTarnScope>();
    scope->DataName = name;
    scope->RequestName = request;
    scope->EcuName = ecu;
    scope->FunctionName = element.parent().parent().attributeOrEmpty("function");
    scope->DataKey = element.attributeOrEmpty("c");
    scope->varType = std::stoi(std::string(element.attributeOrEmpty("type")));
    scope->Unit = element.attributeOrEmpty("unit");
    scope->index = parameters.Count() + 1;
    return parameters.AddScope(std::move(scope));
  }

  /// Every display, texts that need escaping, and numbers that a careless reader or writer damages.
  void fillEverything() {
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
    add("Engine", "Status", "Speed").SetGraph("Speed > 0", false, -1e-7, 1.0 / 3, 200, 0x0000FF);
    add("Engine", "Status", "Load").SetGraphIndex(0x00FF00, 1);
    add("Engine", "Status", "Key").SetSlide("Key", 1e21, std::numeric_limits<double>::max(), -2147483647);
    add("Brakes", "Wheels", "Front").SetGraphAxeX("", false, 5e-324, 0.5, 1);
    add("Engine", "Status", "Mode").SetNumeric("");
    add("Engine", "Status", "Raw");
    parameters.Item("c2")->FunctionAddress = 16;
  }
};

/// The process's numbers have a comma for the life of this.
class CommaLocale {
 public:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale(), new Comma))) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"})
      if (std::setlocale(LC_ALL, name) != nullptr) break;
  }
  ~CommaLocale() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }

 private:
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::locale before_;
};

}  // namespace

TEST_F(ConfigurationSave, ReadsBackWhatItWroteUnderAnyLocale) {
  fillEverything();
  const std::string comment = parameters.userDescription;
  const std::string first = saved();
  parameters.filePrefix = parameters.startSession = parameters.userDescription = "";
  parameters.startTrigger->level = 7;
  const CommaLocale comma;
  load(first);
  EXPECT_EQ(dropped() + droppedRequests(), "");
  EXPECT_EQ(items(), "1 Speed G, 2 Load I1, 3 Key B, 4 Front X1, 5 Mode D, 6 Raw N");
  EXPECT_EQ(parameters.userDescription, comment);
  EXPECT_EQ(parameters.filePrefix, "a\tb\n'c'");
  EXPECT_EQ(parameters.startTrigger->level, 0.1);
  EXPECT_EQ(parameters.Item("c2")->oTarnGraph()->AxeYmaxi, 1.0 / 3);
  EXPECT_EQ(parameters.Item("c4")->oTarnSlide()->maxi, std::numeric_limits<double>::max());
  EXPECT_EQ(parameters.Item("c2")->DeviceName, "Wheel sensor");
  const std::string second = saved();
  load(second);
  EXPECT_EQ(saved(), second);
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
  const auto triggers = [&](std::int32_t start, std::int32_t stop) {
    parameters.startTrigger->typeTrigger = start;
    parameters.stopTrigger->typeTrigger = stop;
    const std::string file = saved();
    const std::size_t from = file.find("<Trigger"), to = file.find("<File", from);
    std::string text;
    for (const char c : file.substr(from, to - from))
      if (c != '\t' && c != '\r' && c != '\n') text += c;
    return text;
  };
  EXPECT_EQ(triggers(2, 2),
            "<Trigger><Start prepost=\"0\" restart=\"1\" type=\"Manual\"/>"
            "<Stop prepost=\"0\" type=\"Time\"><Time seconde=\"60\"/></Stop></Trigger>");
  EXPECT_EQ(triggers(1, 1),
            "<Trigger><Start prepost=\"0\" restart=\"1\" type=\"Channel\">"
            "<Channel edge=\"0\" level=\"0\" index=\"0\"/></Start><Stop prepost=\"0\" type=\"Channel\">"
            "<Channel edge=\"0\" level=\"0\" index=\"0\"/></Stop></Trigger>");
  EXPECT_EQ(triggers(3, -1), "<Trigger/>");
}
