#include <gmock/gmock.h>

#include "tests/support/ReadBack.h"

namespace tarnlog {
namespace {

using test::readBack;
using test::ReadBack;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kHeader =
    "time\tevent\t\"Engine\"\t\"Engine\"\t\"Brakes\"\t\"Brakes\"\r\n"
    "16.11.26\t\t\"Status\"\t\"Status\"\t\"Id\"\t\"Id\"\r\n"
    "19:05:08\t\t\"Speed(km/h)\"\t\"Temp\xE9rature(\xB0"
    "C)\"\t\"Part (left)\"\t\"Speed(km/h)\"\r\n";
const std::string kRows =
    "-0,1\t\"\"\t60,5\t1E-06\tA,\"b\" \xE9\t1.5\r\n"
    "0\t\"Start\"\t61\t---\t0012\t1,5\r\n"
    "0,13\t\"event2\"\t-61,25\t123456789012345\t\t-0,5\r\n";

/// Columns of the same name get ECU and request; a number with the other separator stays a text.
TEST(TextRecord, GoesIntoCsvAsItIsWritten) {
  const ReadBack back = readBack(kHeader + kRows);
  EXPECT_EQ(back.text,
            "time [s],mark,Engine/Status/Speed [km/h],Température [°C],Part (left),Brakes/Id/Speed [km/h]\n"
            "-0.1,,60.5,1E-06,\"A,\"\"b\"\" é\",1.5\n"
            "0,Start,61,,0012,1.5\n"
            "0.13,event2,-61.25,123456789012345,,-0.5\n");
  EXPECT_THAT(back.missing, IsEmpty());

  ExportChoice choice{0.0, 0.1, {"Brakes/Id/Speed", "Part (left)"}};
  EXPECT_EQ(readBack(kHeader + kRows, choice).text,
            "time [s],mark,Part (left),Brakes/Id/Speed [km/h]\n0,Start,0012,1.5\n");
}

TEST(TextRecord, HasEachNameOnce) {
  EXPECT_EQ(readBack("time\tevent\t\"A\"\t\"A\"\t\"A 2\"\r\n1\t\"\"\t1\t2\t3\r\n", {}, "").text,
            "time [s],mark,A,A 2,A 2 2\n1,,1,2,3\n");
}

TEST(TextRecord, HasNumbersAndTextsInJson) {
  const ReadBack back = readBack(kHeader + kRows, {}, "", true);
  EXPECT_THAT(
      back.text,
      HasSubstr("{\"name\":\"Température\",\"ecu\":\"Engine\",\"request\":\"Status\",\"unit\":\"°C\"}"));
  EXPECT_THAT(
      back.text,
      HasSubstr("{\"type\":\"mark\",\"time\":0,\"kind\":\"start\"}\n"
                "{\"type\":\"row\",\"time\":0,\"values\":{\"Engine/Status/Speed\":61,\"Température\":null,"
                "\"Part (left)\":\"0012\",\"Brakes/Id/Speed\":1.5}}\n"));
  EXPECT_THAT(back.text, HasSubstr("\"Part (left)\":\"A,\\\"b\\\" é\",\"Brakes/Id/Speed\":\"1.5\""));
}

/// What is no time does not tell the separator.
TEST(TextRecord, HasItsNumbersBehindADamagedRow) {
  const std::string event = "time\tevent\t\"A\"\r\n";
  EXPECT_THAT(readBack(event + "lost, and found\t\"\"\t1\r\n1\t\"\"\t1.5\r\n", {}, "", true).text,
              HasSubstr("\"values\":{\"A\":1.5}"));
}

/// Appending gives a file of several recordings, each with its header, its columns and its separator; a row
/// that was not finished may stand right before a header.
TEST(TextRecord, IsSplitIntoItsRecordings) {
  const std::string other =
      "time\tevent\t\"Engine\"\r\n17/11/26\t\t\"Status\"\r\n7:05:08\t\t\"Speed(km/h)\"\r\n"
      "0.02\t\"\"\t7\r\n";
  const std::string event = "time\tevent\t\"Speed(km/h)\"\r\n1\t\"event\"\t9\r\n";
  const ReadBack back = readBack(kHeader + kRows + "0,2\t\"\"\t61" + other + "junk\r\n" + event);
  EXPECT_EQ(back.text.substr(back.text.find("2,0.02")), "2,0.02,,7,,,,\n3,1,event,,,,,9\n");
  EXPECT_THAT(back.missing, ElementsAre(HasSubstr("the row is not whole, 9 bytes"),
                                        HasSubstr("1 row passed over: expected a time, a mark and 1 cells")));
  test::MemoryReadableFile file(kHeader + kRows + other + event);
  const auto reader = openRecord(file, "event1_18-11-26_20h00mn01.txt");
  EXPECT_EQ(reader->recordings()[0].local->hour, 19);
  EXPECT_EQ(reader->recordings()[1].local->day, 17);
  EXPECT_EQ(reader->recordings()[2].local->day, 18);
}

TEST(TextRecord, CutAnywhereGivesItsWholeRows) {
  const std::string whole = kHeader + kRows;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::string cut = whole.substr(0, length);
    const ReadBack back = readBack(cut);
    if (length < kHeader.size()) {
      ASSERT_TRUE(!back.refused.empty() || back.lines() == 1) << length;
      continue;
    }
    const auto rows = static_cast<std::size_t>(std::count(cut.begin(), cut.end(), '\n')) - 3;
    ASSERT_EQ(back.lines(), 1 + rows) << length;
    ASSERT_EQ(back.missing.empty(), cut.ends_with('\n')) << length;
  }
}

const std::string kXml =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<Tarnlog2000 Version=\"2.0\">\r\n"
    "\t<Description>Data file</Description>\r\n\t<File>16-11-26_19h05mn08.xml</File>\r\n"
    "\t<Parameters>\r\n\t\t<Comment>Wet</Comment>\r\n\t</Parameters>\r\n\t<Datas>\r\n"
    "\t\t<Data index=\"1\" name=\"Speed\" request=\"Status\" unit=\"km/h\"><ECU name=\"Engine\"/></Data>\r\n"
    "\t\t<Data index=\"2\" name=\"Part\" request=\"Id\"><ECU name=\"Engine\"/></Data>\r\n\t</Datas>\r\n"
    "\t<row Time=\"0\" Event=\"Start\" C1=\"60,5\" C2=\"a&amp;b&#10;\"/>\r\n"
    "\t<row Time=\"0,13\" Event=\"\" C1=\"61\" C2=\"1.5\"/>\r\n</Tarnlog2000>\r\n";

TEST(XmlRecord, IsReadWholeOrCutAnywhere) {
  const std::string header = "time [s],mark,Speed [km/h],Part\n";
  const std::string first = "0,Start,60.5,\"a&b\n\"\n";
  const std::string all = header + first + "0.13,,61,1.5\n";
  const ReadBack back = readBack(kXml);
  EXPECT_EQ(back.text, all);
  EXPECT_THAT(back.missing, IsEmpty());

  for (std::size_t length = 0; length < kXml.size(); ++length) {
    const ReadBack cut = readBack(kXml.substr(0, length));
    if (length < kXml.find("</Datas>") + 8) {
      ASSERT_FALSE(cut.refused.empty()) << length;
      continue;
    }
    const bool one = length >= kXml.find("\r\n\t<row Time=\"0,13\"");
    const bool two = length >= kXml.find("\r\n</Tarnlog2000>");
    // Without a second row, nothing but the cell tells the separator.
    ASSERT_EQ(cut.text, two ? all : one ? header + first : header) << length;
    ASSERT_EQ(cut.missing.empty(), length >= kXml.find("\r\n", kXml.find("</Tarnlog2000>"))) << length;
  }
}

TEST(Records, AreToldFromOtherFiles) {
  EXPECT_THAT(readBack("").refused, HasSubstr("the file is empty: expected a text"));
  EXPECT_THAT(readBack("a,b\n1,2\n").refused, HasSubstr("expected a text or XML record"));
  EXPECT_THAT(readBack("time\tevent" + std::string(300000, '\t') + "\n").refused,
              HasSubstr("more than 200000 columns"));
  EXPECT_THAT(readBack("<html/>").refused, HasSubstr("expected the root element Tarnlog2000"));
  std::string configuration = kXml;
  configuration.replace(configuration.find("Data file"), 9, "Parameters file");
  EXPECT_THAT(readBack(configuration).refused, HasSubstr("a configuration, expected a record"));
}

}  // namespace
}  // namespace tarnlog
