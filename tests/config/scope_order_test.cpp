#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "config/StoredReferences.h"
#include "tests/config/ConfigurationFixture.h"
#include "tests/config/ScopeList.h"

using namespace tarnlog;
using namespace tarnlog::test;

TEST(RemoveScope, RepairsReferencesByPosition) {
  EXPECT_EQ(ScopeList("a:G b:I1 c:G d:I3 e:X3 f:I1").removed(1).text(), "b:G c:G d:I2 e:X3 f:G");
  EXPECT_EQ(ScopeList("a:D b:G c:I2 d:N").removed(4).text(), "a:D b:G c:I2");
  EXPECT_EQ(ScopeList("a:D b:D").removed(3).removed(0).removed(-1).text(), "a:D b:D");
}

TEST(RemoveScope, TriggersFollowTheirItemOrBecomeManual) {
  ScopeList list("a:D b:D c:D");
  watch(*list.startTrigger, 2);
  watch(*list.stopTrigger, 3);
  EXPECT_EQ(list.removed(1).text(), "b:D c:D start=1 stop=2");
  EXPECT_EQ(list.removed(1).text(), "c:D stop=1");
}

TEST(ChangeScopeOrder, ReferencesFollowTheMovedItemAndTheOneItPassed) {
  EXPECT_EQ(ScopeList("a:G b:D c:I1 d:X1").moved("a", "b").text(), "b:D a:G c:I2 d:X2");
  EXPECT_EQ(ScopeList("a:D b:G c:I2 d:X2").moved("a", "b").text(), "b:G a:D c:I1 d:X1");
  EXPECT_EQ(ScopeList("a:G b:D c:I1").moved("b", "a").text(), "b:D a:G c:I2");
  EXPECT_EQ(ScopeList("a:D b:D c:G d:I3").moved("c", "a").text(), "c:G a:D b:D d:I1");
}

TEST(ChangeScopeOrder, WhatWouldReferBehindItselfBecomesAGraph) {
  EXPECT_EQ(ScopeList("a:D b:I3 c:G").moved("c", "a").text(), "c:G a:D b:I1") << "its graph moves ahead";
  EXPECT_EQ(ScopeList("a:D b:I2").moved("b", "a").text(), "b:I1 a:D") << "so does a reference to itself";
  EXPECT_EQ(ScopeList("a:G b:I1").moved("b", "a").text(), "b:G a:G");
  EXPECT_EQ(ScopeList("a:G b:X1").moved("a", "b").text(), "b:G a:G");
  EXPECT_EQ(ScopeList("a:D b:G c:I2 d:I2 e:D").moved("b", "c").text(), "a:D c:G b:G d:I3 e:D");
}

// Items between the two places are still to be numbered when a reference to the moved item is looked at: c
// keeps a reference to place 1, where b stands now. Renumbering first would make c a Graph right away.
TEST(ChangeScopeOrder, IsOneWalkWithTheNumbersOfTheMoment) {
  ScopeList list("a:G b:D c:I1 d:D");
  EXPECT_EQ(list.moved("a", "d").text(), "b:D c:I1 d:D a:G");
  EXPECT_EQ(list.corrected().text(), "b:D c:G d:D a:G");
}

TEST(ChangeScopeOrder, ConvertedItemsKeepTheirLooks) {
  ScopeList list("a:G b:I1 c:X1");
  list.Item("b")->ChangeCaption("Load");
  list.Item("b")->ChangeColor(0x123456);
  list.Item("c")->ChangeCaption("Axis");
  list.moved("a", "c");
  ASSERT_EQ(list.text(), "b:G c:X1 a:G");
  const oTarnGraph& curve = *list.Item("b")->oTarnGraph();
  EXPECT_EQ(std::tuple(curve.Caption, curve.Color, curve.AxeYAuto), std::tuple("Load", 0x123456, true));

  ScopeList axis("a:G b:X1");
  axis.Item("b")->ChangeCaption("Axis");
  axis.moved("b", "a");
  EXPECT_EQ(axis.Item("b")->oTarnGraph()->Caption, "Axis");
  EXPECT_EQ(axis.Item("b")->oTarnGraph()->Color, 0xFF0000);
}

TEST(ChangeScopeOrder, TriggersGoOnWatchingTheSameItem) {
  ScopeList list("a:D b:D c:D d:D");
  watch(*list.startTrigger, 4);
  watch(*list.stopTrigger, 1);
  EXPECT_EQ(list.moved("d", "a").text(), "d:D a:D b:D c:D start=1 stop=2");
  watch(*list.stopTrigger, 9);
  EXPECT_EQ(list.moved("d", "b").text(), "a:D b:D d:D c:D start=3 stop=9");
}

TEST(MoveScopes, ReferencesAndTriggersFollowOverAnyDistance) {
  ScopeList list("a:G b:D c:I1 d:D e:G f:X5");
  watch(*list.startTrigger, 5);
  list.moveScopes({list.Item("e"), list.Item("b")}, list.Item("a"));
  EXPECT_EQ(list.text(), "e:G b:D a:G c:I3 d:D f:X1 start=1");
  list.moveScopes({list.Item("e")}, nullptr);
  EXPECT_EQ(list.text(), "b:D a:G c:I2 d:D f:G e:G start=6") << "f would refer behind itself";
}

TEST(RemoveScopes, IsTheSameAsOneAfterAnotherFromTheLastOn) {
  std::mt19937 random(20011);
  const auto below = [&random](std::size_t end) { return static_cast<std::int32_t>(random() % end); };
  for (int run = 0; run < 300; ++run) {
    std::string items;
    const std::int32_t count = 2 + below(8);
    for (char name = 'a'; name < 'a' + count; ++name) {
      items += std::string(items.empty() ? "" : " ") + name + ":" + "DGGIX"[below(5)];
      if (items.back() == 'I' || items.back() == 'X') items += std::to_string(below(11));
    }
    std::vector<std::int32_t> places;
    for (std::int32_t place = count; place >= 1; --place)
      if (below(2) == 0) places.push_back(place);
    ScopeList steps(items), once(items);
    for (ScopeList* const list : {&steps, &once}) watch(*list->startTrigger, 1 + count / 2);
    for (const std::int32_t place : places) steps.removed(place);
    once.removeScopes(places);
    ASSERT_EQ(once.text(), steps.text()) << items;
  }
}

TEST(InsertScopes, UndoARemovalThatNothingReferredTo) {
  ScopeList list("a:D b:G c:I2 d:X2");
  watch(*list.stopTrigger, 3);
  std::vector<oTarnParameters::PlacedScope> removed;
  removed.push_back({list.removeScope(1), 1});
  list.Item("d")->oTarnGraphAxeX()->index = 1;
  list.insertScopes(std::move(removed));
  EXPECT_EQ(list.text(), "a:D b:G c:I2 d:X2 stop=3");
  EXPECT_EQ(list.removeScope(5), nullptr);
}

TEST(CheckAndCorrect, TurnsWhatRefersToNoGraphIntoAGraph) {
  ScopeList list("a:D b:I1 c:X9 d:G e:I4 f:X4 g:I0 h:X-1");
  list.Item("b")->ChangeCaption("lost");
  EXPECT_EQ(list.corrected().text(), "a:D b:G c:G d:G e:I4 f:X4 g:G h:G");
  EXPECT_EQ(list.Item("b")->oTarnGraph()->Caption, "");
  EXPECT_EQ(list.Item("b")->oTarnGraph()->Color, 0xFF0000);
}

using StoredReferences = ConfigurationFixture;

TEST_F(StoredReferences, AfterALoadThatDroppedItemsEverythingMeansTheSameData) {
  loadParts(
      "<Recording><Trigger><Start type=\"Channel\"><Channel index=\"6\"/></Start>"
      "<Stop type=\"Channel\"><Channel index=\"1\"/></Stop></Trigger></Recording>",
      data("1", "Engine/Status/Torque", "Graph") + data("2", "Engine/Status/Speed", "Graph") +
          data("3", "Engine/Status/Load", "GraphIndex", "index=\"2\"") +
          data("4", "Engine/Status/Key", "GraphIndex", "index=\"1\"") +
          data("6", "Brakes/Wheels/Front", "GraphAxeX", "index=\"2\"") +
          data("7", "Brakes/Wheels/Rear", "GraphAxeX", "index=\"5\""));
  mapStoredReferences(parameters);
  EXPECT_EQ(items(), "Speed:G Load:I1 Key:I0 Front:X1 Rear:X0");
  EXPECT_EQ(parameters.startTrigger->DataIndex, 4);
  EXPECT_EQ(parameters.stopTrigger->typeTrigger, oTarnTrigger::kManual);
  parameters.CheckAndCorrect();
  EXPECT_EQ(items(), "Speed:G Load:I1 Key:G Front:X1 Rear:G");
}

TEST(StoredReferencesByNumber, OfItemsWithOneNumberTheLastIsWatchedAndTheFirstGraphDrawnOn) {
  ScopeList list("a:D b:G c:G d:I5 e:D");
  for (const char* key : {"a", "b", "c", "e"}) list.Item(key)->index = 5;
  watch(*list.startTrigger, 5);
  mapStoredReferences(list);
  EXPECT_EQ(list.text(), "a:D b:G c:G d:I2 e:D start=5");
}
