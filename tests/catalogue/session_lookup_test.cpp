#include <gtest/gtest.h>

#include <random>
#include <string>

#include "catalogue/SessionDocument.h"
#include "platform/text/Numbers.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::test {
namespace {

XmlElement firstNamed(XmlElement parent, const char* element, std::string_view name) {
  XmlElement child = parent.firstChild(element);
  while (child && child.attribute("name") != name) child = child.nextSibling(element);
  return child;
}

/// The walk in document order that the index must agree with.
XmlElement walk(const SessionDocument& document, std::string_view ecu, std::string_view request,
                std::int32_t address) {
  XmlElement uce = document.document().documentNode().firstChild("Tarnlog2000").firstChild("uce");
  while (uce && uce.attribute("name") != ecu && wholeInteger(uce.attributeOrEmpty("address")) != address)
    uce = uce.nextSibling("uce");
  return firstNamed(uce, "request", request);
}

TEST(SessionLookUp, AnswersAsAWalkWouldForAnyMixtureOfNames) {
  std::mt19937 random(2001);
  const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  ScriptedSession session;
  for (int e = 0; e < 30; ++e) {
    auto& ecu = session.addEcu("E" + std::to_string(pick(25)), "f", pick(25));
    for (int r = 0; r < 12; ++r) {
      auto& request = ecu.addRequest("R" + std::to_string(pick(15)));
      for (int d = 0; d < 10; ++d) {
        auto& item = request.addData("D" + std::to_string(pick(12)));
        if (pick(50) == 0) item.unreadable();
      }
    }
  }
  const SessionDocument document = BuildSessionDocument(session);
  int found = 0;
  for (int i = 0; i < 5000; ++i) {
    const std::string ecu = "E" + std::to_string(pick(30));
    const std::string request = "R" + std::to_string(pick(15));
    const std::string data = "D" + std::to_string(pick(12));
    const std::int32_t address = pick(30);
    const XmlElement wanted = walk(document, ecu, request, address);
    ASSERT_EQ(FindSessionRequest(document, ecu, request, address), wanted);
    const XmlElement item = FindSessionData(document, ecu, request, data, address);
    ASSERT_EQ(item, firstNamed(wanted, "data", data));
    if (item) ++found;
  }
  EXPECT_GT(found, 500);
}

}  // namespace
}  // namespace tarnlog::test
