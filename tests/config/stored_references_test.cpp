#include "config/StoredReferences.h"

#include "tests/config/ConfigurationFixture.h"
#include "tests/config/ScopeList.h"

using namespace tarnlog;
using namespace tarnlog::test;

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
  EXPECT_EQ(items(), "1 Speed G, 2 Load I1, 3 Key I0, 4 Front X1, 5 Rear X0");
  EXPECT_EQ(parameters.startTrigger->DataIndex, 4);
  EXPECT_EQ(parameters.stopTrigger->typeTrigger, oTarnTrigger::kManual);
  parameters.CheckAndCorrect();
  EXPECT_EQ(items(), "1 Speed G, 2 Load I1, 3 Key G, 4 Front X1, 5 Rear G");
}

TEST(StoredReferencesByNumber, OfItemsWithOneNumberTheLastIsWatchedAndTheFirstGraphDrawnOn) {
  ScopeList list("a:D b:G c:G d:I5 e:D");
  for (const char* key : {"a", "b", "c", "e"}) list.Item(key)->index = 5;
  watch(*list.startTrigger, 5);
  mapStoredReferences(list);
  EXPECT_EQ(list.text(), "a:D b:G c:G d:I2 e:D");
  EXPECT_EQ(list.startTrigger->DataIndex, 5);
}
