#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ui/init/InitFixture.h"
#include "ui/init/InitRules.h"
#include "ui/init/StartSessionText.h"

using namespace tarnlog;
using testing::ElementsAre;

namespace {

class InitRulesTest : public testing::Test, protected test::InitFixture {
 protected:
  InitRulesTest() {
    rules.setSession(&session);
    rules.setParameters(parameters);
  }
  InitRules rules;
};

TEST_F(InitRulesTest, OffersWhatCanBeSentOnly) {
  session.ecu(0).findRequest("Status")->findData("Key")->unreadable();
  session.ecu(1).findRequest("Bleed")->addData("Broken").raisingAt("readable");
  rules.setParameters(parameters);
  const auto& offered = rules.offered();
  ASSERT_EQ(offered.size(), 4U);
  EXPECT_EQ(offered[0], (OfferedEcu{"Engine", 16, {"Reset"}}));
  EXPECT_EQ(offered[1], (OfferedEcu{"Brakes", 40, {"Wheels"}})) << "it failed at Bleed";
  EXPECT_EQ(offered[2].name, "Far");

  EXPECT_TRUE(rules.setParameters(nullptr));
  EXPECT_TRUE(rules.offered().empty());
  EXPECT_EQ(rules.add(0, 0), InitRules::Added::nothing);
  EXPECT_FALSE(rules.remove({1}) || rules.moveUp({2}) || rules.setStartSession("10") ||
               rules.leaveStartSession());
}

TEST_F(InitRulesTest, WithoutASessionTheScreenStays) {
  rules.setSession(nullptr);
  EXPECT_FALSE(rules.setParameters(std::make_shared<oTarnParameters>(settings)));
  EXPECT_EQ(rules.offered().size(), 4U);
}

TEST_F(InitRulesTest, KeepsTheStartSessionAsBytes) {
  EXPECT_TRUE(rules.setStartSession(" 10A "));
  EXPECT_EQ(parameters->startSession, " 10A ");
  EXPECT_TRUE(rules.leaveStartSession());
  EXPECT_EQ(parameters->startSession, "010A");
  EXPECT_FALSE(rules.leaveStartSession());

  EXPECT_EQ(normalisedStartSession("  10A0 "), "10A0");
  EXPECT_EQ(normalisedStartSession("   "), "");
  for (const char* text : {"", "10A0", "10a", " 10 A0 00 "})
    EXPECT_TRUE(isSendableStartSession(text)) << text;
  for (const char* text : {"xyz", "10 A", "10 A0", "10-A0"})
    EXPECT_FALSE(isSendableStartSession(text)) << text;
}

/// Rows of a scenario that is shown no longer were looked for in the next one.
TEST_F(InitRulesTest, TakesNoRowsOfAnotherConfiguration) {
  rules.add(0, 1);
  rules.setSession(nullptr);
  EXPECT_FALSE(rules.setParameters(std::make_shared<oTarnParameters>(settings)));
  EXPECT_FALSE(rules.remove({1}));
  EXPECT_FALSE(rules.moveDown({1}));
  EXPECT_FALSE(rules.moveUp({2}));
  EXPECT_EQ(rules.add(0, 1), InitRules::Added::nothing);
  EXPECT_TRUE(rules.setStartSession("10A0")) << "the text is a whole";
}

TEST_F(InitRulesTest, AddsRequestsWhoseAddressFits) {
  EXPECT_EQ(rules.add(0, 1), InitRules::Added::yes);
  EXPECT_EQ(rules.add(2, 0), InitRules::Added::yes);
  EXPECT_EQ(rules.add(0, 1), InitRules::Added::yes);
  EXPECT_EQ(rules.add(3, 0), InitRules::Added::addressTooLarge);
  EXPECT_EQ(rules.add(3, 1), InitRules::Added::nothing);
  EXPECT_EQ(scenario(), "Engine/Reset Far/Close Engine/Reset");
  EXPECT_EQ(parameters->initScenario->Item(2).Address, 0x18DA);
  EXPECT_THAT(rules.selection(), ElementsAre(1));
}

}  // namespace
