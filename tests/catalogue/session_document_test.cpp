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
  auto& brakes = session.addEcu("Brakes", "ABS", 40);
  brakes.addRequest("off", "21 01").isAvailable = false;
  brakes.addRequest("silent", "");
  auto& dropped = brakes.addRequest("dropped", "21 02");  // keeps its numbers and leaves nothing else
  dropped.addData("A");
  dropped.addData("B").unreadable();
  dropped.addData("C");
  brakes.addRequest("kept", "21 03");
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
      "<uce name=\"Brakes\" function=\"ABS\" address=\"40\" c=\"c5\">|<request name=\"kept\" c=\"c9\">|"
      "</request>|</uce>|");
  const SessionDocument document = BuildSessionDocument(session);
  EXPECT_FALSE(FindSessionRequest(document, "Brakes", "dropped", 40));
  EXPECT_FALSE(FindSessionData(document, "Brakes", "dropped", "A", 40));
}

TEST(BuildSessionDocument, DecidesTheModeFromTypeAndRange) {
  for (const auto& [typeCode, maximum, mode] : {std::tuple(kInteger, 1.0, "binary"),
                                                {kInteger, 1.5, "numeric"},
                                                {kDouble, 1.0, "numeric"},
                                                {kString, 1.0, "text"},
                                                {kByteArray, 1.0, "text"}}) {
    ScriptedSession session;
    session.addEcu("E", "F", 1).addRequest("R").addData("D", typeCode, "", 0, maximum);
    const SessionDocument document = BuildSessionDocument(session);
    EXPECT_EQ(FindSessionData(document, "E", "R", "D", 1).attributeOrEmpty("mode"), mode);
  }
}

TEST(BuildSessionDocument, MarksTheDefinitionThatTheEcusTablePointsTo) {
  ScriptedSession session;
  auto& ecu = session.addEcu("E", "F", 1);
  ecu.addRequest("A").addData("Speed");
  ecu.pointTableTo(ecu.addRequest("B").addData("Speed"));
  ecu.addRequest("C").addData("Alone");
  ecu.removeFromTable("Alone");
  const SessionDocument document = BuildSessionDocument(session);
  std::string marks;
  for (const auto& [request, name] : {std::pair("A", "Speed"), {"B", "Speed"}, {"C", "Alone"}})
    marks += FindSessionData(document, "E", request, name, 1).attribute("ref") == "1" ? request : "-";
  EXPECT_EQ(marks, "-B-");
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
  for (const char* failing : {"enumeration", "maximum", "unit", "typeCode"})
    request.addData(failing, kInteger, "V", 0, 1).raisingAt(failing);
  ecu.addRequest("S").addData("D").raisingAt("readable");
  EXPECT_EQ(body(session),
            "<uce name=\"E\" function=\"F\" address=\"1\" c=\"c0\">|<request name=\"R\" c=\"c1\">|"
            "<data name=\"enumeration\" c=\"c2\" type=\"3\" min=\"0\" max=\"1\" mode=\"binary\" unit=\"V\"/>|"
            "<data name=\"maximum\" c=\"c3\" type=\"3\" min=\"0\" mode=\"numeric\" unit=\"V\" ref=\"1\"/>|"
            "<data name=\"unit\" c=\"c4\" type=\"3\" min=\"0\" max=\"1\" mode=\"binary\" ref=\"1\"/>|"
            "<data name=\"typeCode\" c=\"c5\" min=\"0\" max=\"1\" mode=\"numeric\" unit=\"V\" ref=\"1\"/>|"
            "</request>|</uce>|");
}

// As a walk in document order finds it: the first ECU with this name or this address, in it the first request
// with this name, in it the first data.
TEST(SessionLookUp, GivesTheFirstThatFits) {
  ScriptedSession session;
  auto& first = session.addEcu("A", "f", 1);
  first.addRequest("R").addData("D").unreadable();
  first.addRequest("R").addData("D");
  auto& kept = first.addRequest("S");
  kept.addData("D");
  kept.addData("D");
  session.addEcu("B", "f", 1).addRequest("R").addData("D");
  auto& last = session.addEcu("A", "f", 3);
  last.addRequest("R").addData("D");
  last.addRequest("T").addData("E");
  const SessionDocument document = BuildSessionDocument(session);
  for (const auto& [ecu, address, request, data, requestKey, dataKey] :
       {std::tuple("A", 9, "R", "D", "c2", "c3"),
        {"A", 3, "S", "D", "c4", "c5"},
        {"B", 1, "S", "D", "c4", "c5"},
        {"B", 9, "R", "D", "c8", "c9"},
        {"X", 3, "R", "D", "c11", "c12"},
        {"X", 3, "T", "E", "c13", "c14"},
        {"X", 3, "T", "D", "c13", ""},
        {"A", 3, "T", "E", "", ""},
        {"X", 9, "R", "D", "", ""}}) {
    const XmlElement found = FindSessionRequest(document, ecu, request, address);
    EXPECT_EQ(found ? found.attributeOrEmpty("c") : "", requestKey) << ecu << address << request;
    const XmlElement item = FindSessionData(document, ecu, request, data, address);
    EXPECT_EQ(item ? item.attributeOrEmpty("c") : "", dataKey) << ecu << address << request << data;
  }
}

}  // namespace
}  // namespace tarnlog::test
