#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/config/ScopeList.h"
#include "ui/scope/ScopeEditor.h"
#include "ui/scope/ScopeOffers.h"
#include "ui/scope/ScopeRow.h"

namespace tarnlog {
namespace {

using test::ScopeList;
using testing::ElementsAre;

constexpr auto kNone = oTarnScope::kNone;
constexpr auto kDigital = oTarnScope::kDigital;
constexpr auto kBarGraph = oTarnScope::kBarGraph;
constexpr auto kGraph = oTarnScope::kGraph;
constexpr auto kGraphIndex = oTarnScope::kGraphIndex;
constexpr auto kGraphAxeX = oTarnScope::kGraphAxeX;

/// The screen's rules over a configuration written as text; data are named like their keys.
struct Screen {
  explicit Screen(const std::string& items) : list(std::make_shared<ScopeList>(items)) {
    for (oTarnScope& scope : *list) scope.DataName = "data " + scope.DataKey;
    editor.setParameters(list);
  }

  oTarnScope& at(std::size_t position) const { return *list->Item(position); }
  Screen& show(std::size_t position) {
    editor.show(position);
    return *this;
  }
  /// Of the current item.
  std::string graphs() const {
    std::string keys;
    for (const oTarnScope* const graph : editor.graphs()) keys += graph->DataKey;
    return keys;
  }
  std::string as(DisplayKind type) {
    editor.chooseType(type);
    return list->text();
  }
  std::string apply(ScopeAction action, const std::vector<std::size_t>& positions) {
    editor.apply(action, positions);
    return list->text();
  }

  std::shared_ptr<ScopeList> list;
  ScopeEditor editor;
};

TEST(ScopeOffers, NumbersCanBeDrawnAndCurvesNeedAGraphAbove) {
  Screen screen("a:D b:G c:N d:D");
  screen.at(4).varType = ferrox3::kString;
  const auto types = [&](std::size_t position) {
    return offeredTypes(*screen.list, screen.at(position)).types;
  };
  EXPECT_THAT(types(1), ElementsAre(kNone, kDigital, kBarGraph, kGraph));
  EXPECT_THAT(types(2), ElementsAre(kNone, kDigital, kBarGraph, kGraph));
  EXPECT_THAT(types(3), ElementsAre(kNone, kDigital, kBarGraph, kGraph, kGraphIndex, kGraphAxeX));
  EXPECT_THAT(types(4), ElementsAre(kNone, kDigital));
  EXPECT_EQ(screen.show(1).as(kGraphIndex), "a:D b:G c:N d:D");
  EXPECT_EQ(screen.show(4).as(kGraph), "a:D b:G c:N d:D");
}

TEST(ScopeEditor, ChangingTheTypeTakesWhatTheEditorsHold) {
  Screen screen("a:G b:N");
  screen.at(1).SetGraph("speed", false, -5, 250, 800, 0x40FF00);
  screen.show(1);
  screen.as(kBarGraph);
  EXPECT_EQ(screen.at(1).oTarnSlide()->Caption, "speed");
  EXPECT_EQ(screen.at(1).oTarnSlide()->mini, -5);
  EXPECT_EQ(screen.at(1).oTarnSlide()->maxi, 250);
  EXPECT_EQ(screen.at(1).oTarnSlide()->Color, 0x40FF00);
  screen.as(kNone);
  screen.as(kDigital);
  EXPECT_EQ(screen.at(1).oTarnNumeric()->Caption, "speed");
  screen.as(kGraph);
  EXPECT_FALSE(screen.at(1).oTarnGraph()->AxeYAuto);
  EXPECT_EQ(screen.at(1).oTarnGraph()->points, 800);

  screen.show(2).as(kGraph);  // nothing of the item before
  EXPECT_EQ(screen.at(2).oTarnGraph()->Caption, "");
  EXPECT_TRUE(screen.at(2).oTarnGraph()->AxeYAuto);
  EXPECT_EQ(screen.at(2).oTarnGraph()->AxeYmaxi, 100);
  EXPECT_EQ(screen.at(2).oTarnGraph()->Color, kScopePalette[1]);
}

TEST(ScopeEditor, WhatBelongedToAGraphBecomesOne) {
  EXPECT_EQ(Screen("a:G b:I1 c:X1 d:G").show(1).as(kDigital), "a:D b:G c:G d:G");
}

TEST(ScopeEditor, PositionsAmongGraphsSkipThoseWithAnotherXAxis) {
  Screen screen("a:G b:D c:G d:X1 e:G f:N g:X3");
  EXPECT_EQ(screen.show(6).as(kGraphAxeX), "a:G b:D c:G d:X1 e:G f:X5 g:X3");
  EXPECT_EQ(screen.graphs(), "e");
  EXPECT_EQ(screen.as(kGraphIndex), "a:G b:D c:G d:X1 e:G f:I5 g:X3");
  EXPECT_EQ(screen.graphs(), "ace");
  EXPECT_EQ(screen.editor.chosenGraph(), 2U);
  EXPECT_TRUE(screen.editor.chooseGraph(1));
  EXPECT_EQ(screen.list->text(), "a:G b:D c:G d:X1 e:G f:I3 g:X3");
  EXPECT_EQ(screen.show(4).graphs(), "a");  // its own; the next ones stand behind it
  screen.show(7);
  EXPECT_EQ(screen.graphs(), "ce");
  EXPECT_TRUE(screen.editor.chooseGraph(1));
  EXPECT_EQ(screen.list->text(), "a:G b:D c:G d:X1 e:G f:I3 g:X5");

  Screen taken("a:G b:X1 c:D");
  EXPECT_FALSE(taken.show(3).editor.chooseType(kGraphAxeX));
  EXPECT_EQ(taken.list->text(), "a:G b:X1 c:D");
}

TEST(ScopeEditor, EditsGoIntoTheSettingsOfTheType) {
  Screen screen("a:G b:X1 c:D");
  screen.show(1);
  EXPECT_FALSE(screen.editor.rangeEnabled());
  screen.editor.changeAutomatic(false);
  screen.editor.changeMaxi(1e-9);
  screen.editor.changePoints(42);
  screen.editor.changeCaption("x");
  EXPECT_TRUE(screen.editor.rangeEnabled());
  EXPECT_FALSE(screen.at(1).oTarnGraph()->AxeYAuto);
  EXPECT_EQ(screen.at(1).oTarnGraph()->AxeYmaxi, 1e-9);
  EXPECT_EQ(screen.at(1).oTarnGraph()->points, 42);
  EXPECT_EQ(screen.at(1).oTarnGraph()->Caption, "x");

  screen.show(2);
  EXPECT_TRUE(screen.editor.parts().axisIsX);
  screen.editor.changeMini(-3);
  EXPECT_EQ(screen.at(2).oTarnGraphAxeX()->axeXmini, -3);
  EXPECT_FALSE(screen.editor.changeColour(1));
  EXPECT_FALSE(screen.show(3).editor.changePoints(7));
}

TEST(ScopeEditor, SurvivesWhatOtherScreensDo) {
  Screen screen("a:G b:D c:D");
  screen.show(2);
  screen.list->removeScope(2);
  EXPECT_EQ(screen.editor.current(), nullptr);
  EXPECT_FALSE(screen.editor.chooseType(kGraph) || screen.editor.changeCaption("x") ||
               screen.editor.moveUp());
  screen.editor.setParameters(screen.list);
  EXPECT_EQ(screen.editor.currentPosition(), 1U);
  screen.show(2);
  screen.editor.setParameters(screen.list);
  EXPECT_EQ(screen.editor.current()->DataKey, "c");
  screen.editor.setParameters(std::make_shared<ScopeList>(""));
  EXPECT_FALSE(screen.editor.apply(ScopeAction::Graph, {1}));
  screen.editor.setParameters(nullptr);
  EXPECT_EQ(screen.editor.current(), nullptr);
}

TEST(ScopeAction, OneGraphGoesRoundThePalette) {
  Screen screen("a:D b:D c:D d:D e:D f:D g:D h:D i:D j:D");
  EXPECT_EQ(screen.apply(ScopeAction::Single, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}),
            "a:G b:I1 c:I1 d:I1 e:I1 f:I1 g:I1 h:I1 i:I1 j:I1");
  EXPECT_EQ(screen.at(1).oTarnGraph()->Color, 0xFF0000);
  EXPECT_EQ(screen.at(2).oTarnGraphIndex()->Color, 0x0000FF);
  EXPECT_EQ(screen.at(8).oTarnGraphIndex()->Color, 0x000000);
  EXPECT_EQ(screen.at(9).oTarnGraphIndex()->Color, 0xFF0000);
  EXPECT_EQ(screen.at(10).oTarnGraphIndex()->Color, 0x0000FF);
}

TEST(ScopeAction, ChangesTheSelectedItemsOnly) {
  EXPECT_EQ(Screen("a:D b:N c:D d:D").apply(ScopeAction::XY, {1, 3, 4}), "a:G b:N c:I1 d:X1");
  EXPECT_EQ(Screen("a:D b:D").apply(ScopeAction::XY, {1}), "a:G b:D");
  EXPECT_EQ(Screen("a:G b:I1 c:D").apply(ScopeAction::None, {1, 3}), "a:N b:G c:N");
  EXPECT_EQ(Screen("a:G b:I1 c:D").apply(ScopeAction::Numeric, {1}), "a:D b:G c:D");
  EXPECT_EQ(Screen("a:D b:I1 c:D").apply(ScopeAction::BarGraph, {1, 3}), "a:B b:G c:B");
  EXPECT_EQ(Screen("a:D b:D c:D").apply(ScopeAction::Graph, {1, 3}), "a:G b:D c:G");
  Screen texts("a:D b:D c:D");
  texts.at(1).varType = ferrox3::kString;
  EXPECT_EQ(texts.apply(ScopeAction::Single, {1, 2, 3}), "a:D b:G c:G");
}

TEST(ScopeAction, UnifyCopiesThePointsOfTheFirstGraph) {
  Screen screen("a:G b:D c:G d:I1 e:G");
  screen.at(1).ChangeAxeXNbPoints(10);
  screen.at(3).ChangeAxeXNbPoints(30);
  EXPECT_EQ(screen.apply(ScopeAction::Unify, {2, 3, 4, 5}), "a:G b:D c:G d:I1 e:G");
  EXPECT_EQ(screen.at(1).oTarnGraph()->points, 10);
  EXPECT_EQ(screen.at(5).oTarnGraph()->points, 30);
  EXPECT_FALSE(screen.editor.apply(ScopeAction::Unify, {1})) << "with one graph nothing changes";
  EXPECT_EQ(screen.at(1).oTarnGraph()->points, 10);
}

}  // namespace
}  // namespace tarnlog
