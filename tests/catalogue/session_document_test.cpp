#include <gtest/gtest.h>

#include <string>

#include "catalogue/SessionDocument.h"
#include "platform/base/TarnError.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::test {
namespace {

using ferrox3::kByteArray;
using ferrox3::kDouble;
using ferrox3::kInteger;
using ferrox3::kString;

const std::string kHead = "<?xml version='1.0' encoding=\"windows-1252\"?><Tarnlog2000>\n";

/// The document's text behind the head, without the end of the root; line ends as "|".
std::string body(const ferrox3::Session& session) {
  std::string text = BuildSessionDocument(session).document().toText();
  const std::string end = "</Tarnlog2000>";
  EXPECT_TRUE(text.starts_with(kHead) && text.ends_with(end)) << text;
  text = text.substr(kHead.size(), text.size() - kHead.size() - end.size());
  for (std::size_t at; (at = text.find("\r\n")) != std::string::npos;) text.replace(at, 2, "|");
  return text;
}

TEST(BuildSessionDocument, WritesEverythingInOrderWithItsKeys) {
  ScriptedSession session;
  session.addEcu("", "Ghost", 1).addRequest("21 01").addData("X");
  auto& engine = session.addEcu("Engine", "Injection", -16);
  auto& status = engine.addRequest("Status", "21 80");
  status.addData("Speed", kDouble, "km/h", -0.5, 250).withDevice("Wheel");
  status.addData("ExtraBytes", kByteArray).unreadable();
  status.addData("Key", kInteger, "", 0, 1).withDevice("Lock", true).withLabels({{"Off", 0}, {"On", 1}});
  engine.addRequest("Nothing", "21 81");
  session.addEcu("Brakes", "ABS", 40);
  EXPECT_EQ(
      body(session),
      "<uce name=\"Engine\" function=\"Injection\" address=\"-16\" c=\"c0\">|"
      "<request name=\"Status\" c=\"c1\">|"
      "<data name=\"Speed\" c=\"c2\" type=\"5\" min=\"-0.5\" max=\"250\" mode=\"numeric\" unit=\"km/h\" "
      "device=\"Wheel\" failure=\"0\" ref=\"1\"/>|"
      "<data name=\"Key\" c=\"c3\" type=\"3\" min=\"0\" max=\"1\" mode=\"binary\" device=\"Lock\" "
      "failure=\"1\" ref=\"1\"><enumeration><item v=\"0\" l=\"Off\"/><item v=\"1\" l=\"On\"/>"
      "</enumeration></data>|"
      "</request>|"
      "<request name=\"Nothing\" c=\"c4\">|</request>|"
      "</uce>|"
      "<uce name=\"Brakes\" function=\"ABS\" address=\"40\" c=\"c5\">|</uce>|");
}

TEST(BuildSessionDocument, ADroppedRequestKeepsItsNumbersAndLeavesNothingElse) {
  ScriptedSession session;
  auto& ecu = session.addEcu("E", "F", 1);
  ecu.addRequest("off", "21 01").isAvailable = false;
  ecu.addRequest("silent", "");
  auto& dropped = ecu.addRequest("dropped", "21 02");
  dropped.addData("A");
  dropped.addData("B").unreadable();
  dropped.addData("C");
  ecu.addRequest("kept", "21 03");
  EXPECT_EQ(body(session),
            "<uce name=\"E\" function=\"F\" address=\"1\" c=\"c0\">|<request name=\"kept\" "
            "c=\"c4\">|</request>|</uce>|");
  const SessionDocument document = BuildSessionDocument(session);
  EXPECT_FALSE(FindSessionRequest(document, "E", "dropped", 1));
  EXPECT_FALSE(FindSessionData(document, "E", "dropped", "A", 1));
}

TEST(BuildSessionDocument, DecidesTheModeFromTypeAndRange) {
  const auto mode = [](std::int32_t typeCode, double minimum, double maximum) {
    ScriptedSession session;
    session.addEcu("E", "F", 1).addRequest("R").addData("D", typeCode, "", minimum, maximum);
    const SessionDocument document = BuildSessionDocument(session);
    return std::string(FindSessionData(document, "E", "R", "D", 1).attributeOrEmpty("mode"));
  };
  EXPECT_EQ(mode(kInteger, 0, 1), "binary");
  EXPECT_EQ(mode(kInteger, 0, 1.5), "numeric");
  EXPECT_EQ(mode(kDouble, 0, 1), "numeric");
  EXPECT_EQ(mode(kString, 0, 1), "text");
  EXPECT_EQ(mode(kByteArray, 0, 1), "text");
}

TEST(BuildSessionDocument, MarksTheDefinitionThatTheEcusTablePointsTo) {
  ScriptedSession session;
  auto& ecu = session.addEcu("E", "F", 1);
  ecu.addRequest("A").addData("Speed");
  auto& second = ecu.addRequest("B").addData("Speed");
  ecu.addRequest("C").addData("Alone");
  ecu.pointTableTo(second);
  ecu.removeFromTable("Alone");
  const SessionDocument document = BuildSessionDocument(session);
  EXPECT_FALSE(FindSessionData(document, "E", "A", "Speed", 1).attribute("ref"));
  EXPECT_EQ(FindSessionData(document, "E", "B", "Speed", 1).attribute("ref"), "1");
  EXPECT_FALSE(FindSessionData(document, "E", "C", "Alone", 1).attribute("ref"));
}

TEST(BuildSessionDocument, RaisesFailuresBeforeTheFirstTableLookUp) {
  for (const char* property : {"name", "readable", "typeCode", "minimum", "maximum", "unit", "device"}) {
    ScriptedSession session;
    session.addEcu("E", "F", 1).addRequest("R").addData("D").raisingAt(property);
    EXPECT_THROW(BuildSessionDocument(session), TarnError) << property;
  }
}

TEST(BuildSessionDocument, SkipsFailuresFromTheFirstTableLookUpOn) {
  ScriptedSession session;
  auto& ecu = session.addEcu("E", "F", 1);
  auto& request = ecu.addRequest("R");
  ecu.failingTable.next("no table");
  request.addData("first").raisingAt("enumeration");
  request.addData("range", kInteger, "V", 0, 1).raisingAt("maximum");
  request.addData("unit", kInteger, "V", 0, 1).raisingAt("unit");
  request.addData("type", kInteger, "V", 0, 1).raisingAt("typeCode");
  ecu.addRequest("S").addData("D").raisingAt("readable");
  EXPECT_EQ(body(session),
            "<uce name=\"E\" function=\"F\" address=\"1\" c=\"c0\">|<request name=\"R\" c=\"c1\">|"
            "<data name=\"first\" c=\"c2\" type=\"5\" min=\"0\" max=\"100\" mode=\"numeric\"/>|"
            "<data name=\"range\" c=\"c3\" type=\"3\" min=\"0\" mode=\"numeric\" unit=\"V\" ref=\"1\"/>|"
            "<data name=\"unit\" c=\"c4\" type=\"3\" min=\"0\" max=\"1\" mode=\"binary\" ref=\"1\"/>|"
            "<data name=\"type\" c=\"c5\" min=\"0\" max=\"1\" mode=\"numeric\" unit=\"V\" ref=\"1\"/>|"
            "</request>|</uce>|");
}

}  // namespace
}  // namespace tarnlog::test
