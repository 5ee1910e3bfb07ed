#include "config/oScenario.h"

#include <gtest/gtest.h>

#include "platform/base/TarnError.h"

using namespace tarnlog;

TEST(Scenario, EndsBeforeItsOrderWouldWrap) {
  oScenario scenario;
  while (scenario.Count() < 32767) scenario.Add("R", "Engine", 16);
  EXPECT_THROW(scenario.Add("R", "Engine", 16), TarnError);
  EXPECT_EQ(scenario.Item(32767).Order, 32767);
}
