#include "config/oTarnScope.h"

#include <gtest/gtest.h>

#include <tuple>

#include "platform/ferrox3/Value.h"

using namespace tarnlog;

namespace {

oTarnScope scopeOf(std::int32_t varType) {
  oTarnScope scope;
  scope.varType = varType;
  scope.DataKey = "c7";
  scope.FunctionAddress = 16;
  return scope;
}

}  // namespace

TEST(Scope, TextsAndBytesAreShownAsDigitsOnly) {
  for (const std::int32_t type : {ferrox3::kString, ferrox3::kByteArray, 11}) {
    oTarnScope scope = scopeOf(type);
    scope.setScopeType(oTarnScope::kDigital);
    for (const DisplayKind kind :
         {oTarnScope::kBarGraph, oTarnScope::kGraph, oTarnScope::kGraphIndex, oTarnScope::kGraphAxeX}) {
      scope.setScopeType(kind);
      EXPECT_EQ(scope.ScopeType(), oTarnScope::kDigital);
    }
  }
}

TEST(Scope, ABarStaysAsItIsAndOtherDisplaysStartAnew) {
  oTarnScope scope = scopeOf(ferrox3::kDouble);
  scope.SetSlide("first", 1, 2, 3);
  scope.SetSlide("second", 4, 5, 6);
  scope.ChangeAxeY(false, -5, 5);
  scope.ChangeColor(1);
  scope.ChangeAxeXNbPoints(9);
  const oTarnSlide& bar = *scope.oTarnSlide();
  EXPECT_EQ(std::tuple(bar.Caption, bar.mini, bar.Color), std::tuple("first", -5, 1));
  scope.SetGraph("first", false, 1, 2, 3, 4);
  scope.setScopeType(oTarnScope::kGraph);
  EXPECT_EQ(scope.oTarnGraph()->Caption, "");
  EXPECT_TRUE(scope.oTarnGraph()->AxeYAuto);
  scope.setScopeType(oTarnScope::kGraphAxeX);
  scope.ChangeAxeY(false, -5, 5);
  scope.ChangeColor(2);
  EXPECT_FALSE(scope.oTarnGraphAxeX()->axeXAuto);
  EXPECT_EQ(scope.oTarnGraphAxeX()->axeXmaxi, 5);
}

TEST(Scope, NumbersThatDoNotFitAreRoundedOrLeftOut) {
  oTarnScope scope = scopeOf(ferrox3::kDouble);
  scope.SetNumeric("", {-1, 20, 0, -7});
  const DisplayPosition& position = scope.oTarnNumeric()->position;
  EXPECT_EQ(std::tuple(position.left, position.top, position.width, position.height),
            std::tuple(-1, 20, 0, -1))
      << "only positions from 0 up are taken";
  for (const auto& [reference, rounded] : {std::pair(2.5F, 2), {3.5F, 4}}) {
    scope.SetGraphIndex(0, reference);
    EXPECT_EQ(*scope.graphReference(), rounded) << "halves to even";
  }
}

TEST(Scope, NoDisplayKeepsWhatTheItemIsAndAssigningItForgets) {
  oTarnScope scope = scopeOf(ferrox3::kDouble);
  scope.setScopeType(oTarnScope::kGraph);
  scope.SetNone();
  EXPECT_EQ(std::tuple(scope.DataKey, scope.FunctionAddress), std::tuple("c7", 16));
  EXPECT_EQ(scope.oTarnGraph(), nullptr);
  scope.setScopeType(oTarnScope::kNone);
  EXPECT_EQ(std::tuple(scope.DataKey, scope.FunctionAddress), std::tuple("", oTarnScope::kNoAddress));
}
