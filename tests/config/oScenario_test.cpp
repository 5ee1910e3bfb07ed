#include "config/oScenario.h"

#include <gtest/gtest.h>

#include "platform/base/TarnError.h"

using namespace tarnlog;

namespace {

class Scenario : public testing::Test {
 protected:
  Scenario() {
    for (const char* name : {"R1", "R2", "R3"}) scenario.Add(name, "Engine", 16);
  }

  std::string names() const {
    std::string text;
    std::int16_t position = 0;
    for (const oScenarioRequest& request : scenario) {
      EXPECT_EQ(request.Order, ++position);
      text += (text.empty() ? "" : " ") + request.RequestName;
    }
    return text;
  }

  oScenario scenario;
};

}  // namespace

TEST_F(Scenario, MovesOneStepAndStopsAtTheEdges) {
  EXPECT_EQ(scenario.MoveUp(scenario.Item(3)), 2);
  EXPECT_EQ(names(), "R1 R3 R2");
  EXPECT_EQ(scenario.MoveUp(scenario.Item(1)), 1);
  EXPECT_EQ(scenario.MoveDown(scenario.Item(3)), 3);
  EXPECT_EQ(names(), "R1 R3 R2");
  EXPECT_EQ(scenario.MoveDown(scenario.Item(1)), 2);
  EXPECT_EQ(names(), "R3 R1 R2");
}

TEST_F(Scenario, RemovesThisVeryRequestOnly) {
  oScenarioRequest twin = scenario.Item(2);
  scenario.RemoveRequest(twin);
  EXPECT_EQ(scenario.MoveUp(twin), 2);
  EXPECT_EQ(names(), "R1 R2 R3");
  scenario.RemoveRequest(scenario.Item(2));
  EXPECT_EQ(names(), "R1 R3");
  scenario.MoveUp(scenario.Item(2));
  EXPECT_EQ(names(), "R3 R1");
  EXPECT_THROW(scenario.Item(3), TarnError);
  EXPECT_THROW(scenario.Remove(0), TarnError);
}

TEST_F(Scenario, EndsBeforeItsOrderWouldWrap) {
  while (scenario.Count() < 32767) scenario.Add("R", "Engine", 16);
  EXPECT_THROW(scenario.Add("R", "Engine", 16), TarnError);
  EXPECT_EQ(scenario.Item(32767).Order, 32767);
}
