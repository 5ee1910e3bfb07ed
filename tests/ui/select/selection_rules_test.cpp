#include <gtest/gtest.h>

#include "catalogue/FonctionsSelection.h"
#include "tests/ui/select/SelectionFixture.h"

namespace tarnlog::test {
namespace {

class Selection : public testing::Test, protected SmallSelection {
 protected:
  Selection() {
    rules.setXmlSession(document);
    rules.setParameters(parameters);
  }
  void expandAll() {
    const auto ecus = rules.tree().children(CatalogueTree::kRoot);
    for (const CatalogueNode ecu : ecus) rules.expand(ecu);
  }
  CatalogueNode node(const std::string& text) { return nodeNamed(rules.tree(), text); }
  bool addTogether(const std::vector<std::string>& names, std::size_t before = SelectionRules::kNoRow) {
    std::vector<CatalogueNode> nodes;
    nodes.reserve(names.size());
    for (const std::string& name : names) nodes.push_back(node(name));
    return rules.addData(nodes, before);
  }
  /// One after the other.
  bool add(const std::vector<std::string>& names) {
    bool added = false;
    for (const std::string& name : names) added |= addTogether({name});
    return added;
  }
  void watch(std::int32_t position) {
    parameters->startTrigger->typeTrigger = oTarnTrigger::kChannel;
    parameters->startTrigger->DataIndex = position;
  }
  std::string tree() { return treeText(rules.tree()); }
  /// The rows: "Speed [Load]", the selected one in brackets.
  std::string list() const {
    std::string text;
    for (std::size_t row = 0; row < rules.rows().size(); ++row) {
      const std::string& name = rules.rows()[row].data;
      text += (row == 0 ? "" : " ") + (row == rules.selectedRow() ? "[" + name + "]" : name);
    }
    return text;
  }

  SelectionRules rules;
};

TEST_F(Selection, AddingMakesItemsWithIdentityAndDefaultDisplay) {
  expandAll();
  EXPECT_TRUE(addTogether({"Speed", "Key", "Mode"}));
  EXPECT_EQ(items(), "Key:G Mode:D Speed:G") << "as they stand in the tree";
  EXPECT_EQ(list(), "Key Mode [Speed]");
  EXPECT_EQ(tree(), "Brakes[Wheels[Front Rear]] Engine[Status[Load Raw]]");
  oTarnScope& speed = item("Speed");
  EXPECT_EQ(speed.EcuName + speed.FunctionName + speed.RequestName + speed.DeviceName + speed.Unit,
            "EngineInjectionStatusWheel sensorkm/h");
  EXPECT_EQ(speed.FunctionAddress, 16);
  EXPECT_EQ(parameters->Item(speed.DataKey), &speed);
  EXPECT_TRUE(speed.oTarnGraph()->AxeYAuto);
  EXPECT_EQ(speed.oTarnGraph()->AxeYmaxi, 250);
  EXPECT_EQ(speed.oTarnGraph()->points, 500);
  EXPECT_EQ(speed.oTarnGraph()->position.left, -1);
}

TEST_F(Selection, ARequestOrDeviceStandsForWhatIsLeftBelowItAndAnEcuForNothing) {
  expandAll();
  EXPECT_FALSE(add({"Engine"}));
  add({"Load"});
  EXPECT_TRUE(addTogether({"Status", "Speed", "Engine"}));
  EXPECT_EQ(items(), "Load:G Key:G Mode:D Raw:D Speed:G");
  EXPECT_EQ(tree(), "Brakes[Wheels[Front Rear]] Engine[Status]");
  EXPECT_FALSE(add({"Status"}));
  rules.removeData({4}, 4);
  rules.setShape('O');
  expandAll();
  EXPECT_EQ(tree(), "Brakes Engine[Wheel sensor[Speed (Status)]]");
  EXPECT_FALSE(rules.addsOnDoubleClick(node("Wheel sensor")));
  EXPECT_TRUE(add({"Wheel sensor"}));
  EXPECT_EQ(list(), "Load Key Mode Raw [Speed]");
}

TEST_F(Selection, AKeyThatTheConfigurationHasIsNotAddedTwice) {
  expandAll();
  add({"Speed"});
  FillCatalogueTree(*document, rules.tree(), CatalogueKeys(), kFullDepth);
  EXPECT_FALSE(add({"Speed"}));
  EXPECT_EQ(items(), "Speed:G");
}

TEST_F(Selection, AddingAtARowMovesTheRestDown) {
  expandAll();
  add({"Speed", "Load"});
  item("Load").SetGraphIndex(0, 1);
  watch(2);
  EXPECT_TRUE(addTogether({"Front", "Rear"}, 0));
  EXPECT_EQ(items(), "Front:G Rear:G Speed:G Load:I3");
  EXPECT_EQ(list(), "Front [Rear] Speed Load");
  EXPECT_EQ(parameters->startTrigger->DataIndex, 4);
}

// An item without a row must not let the wrong one be removed or moved.
TEST_F(Selection, ItemsThatTheSessionDoesNotOfferStayWithoutARow) {
  parameters->Add("x").DataName = "Ghost";
  expandAll();
  add({"Speed", "Load"});
  EXPECT_EQ(rules.DisplayDataList(), 2);
  EXPECT_EQ(item("Load").index, 2);
  EXPECT_TRUE(rules.moveUp(1));
  EXPECT_EQ(list(), "[Load] Speed");
  rules.removeData({0}, 0);
  EXPECT_EQ(list(), "[Speed]");
  EXPECT_EQ(parameters->Count(), 2);
}

// Functions of one ECU share its address, and the document finds the first of them by it.
TEST_F(Selection, DataOfTwoEcusWithOneAddressKeepTheirOwnKeys) {
  ScriptedSession session;
  for (const char* name : {"Gearbox", "Retarder"})
    session.addEcu(name, name, 24).addRequest("Status").addData("Oil", ferrox3::kDouble);
  rules.setXmlSession(std::make_shared<SessionDocument>(BuildSessionDocument(session)));
  rules.setParameters(parameters);
  rules.setShape('D');
  expandAll();
  EXPECT_TRUE(add({"Oil (Status)"}) && add({"Oil (Status)"}));
  const oTarnScope& second = *parameters->Item(std::size_t{2});
  EXPECT_TRUE(rules.moveUp(1) && rules.moveDown(0) && rules.moveUp(1));
  EXPECT_EQ(parameters->Item(std::size_t{1}), &second);
  EXPECT_EQ(parameters->Item(second.DataKey), &second);
  EXPECT_EQ(second.EcuName, "Retarder");
}

TEST_F(Selection, ReordersByOnePlaceAndAnyDistance) {
  expandAll();
  add({"Status"});
  EXPECT_EQ(list(), "Key Load Mode Raw [Speed]");
  EXPECT_FALSE(rules.moveUp(0));
  EXPECT_FALSE(rules.moveDown(4));
  EXPECT_FALSE(rules.moveDown(SelectionRules::kNoRow));
  EXPECT_TRUE(rules.moveUp(4));
  EXPECT_EQ(list(), "Key Load Mode [Speed] Raw");
  EXPECT_TRUE(rules.moveDown(0));
  EXPECT_EQ(list(), "Load [Key] Mode Speed Raw");
  EXPECT_TRUE(rules.moveRows({1, 4}, 0));
  EXPECT_EQ(list(), "[Key] Raw Load Mode Speed");
  EXPECT_EQ(items(), "Key:G Raw:D Load:G Mode:D Speed:G");
  EXPECT_TRUE(rules.moveRows({0, 1}, SelectionRules::kNoRow));
  EXPECT_EQ(list(), "Load Mode Speed [Key] Raw");
  EXPECT_FALSE(rules.moveRows({3, 4}, 4)) << "onto themselves";
  EXPECT_TRUE(rules.moveRows({0, 2}, 2));
  EXPECT_EQ(list(), "Mode [Load] Speed Key Raw");
}

TEST_F(Selection, UndoPutsBackItemsTheirPlacesAndWhatReferredToThem) {
  expandAll();
  add({"Mode", "Speed", "Load", "Key"});
  item("Load").SetGraphIndex(0x123456, 2);
  item("Load").ChangeCaption("Torque");
  item("Key").SetGraphAxeX("", true, 0, 100, 2);
  watch(2);
  const std::string before = items();
  EXPECT_EQ(before, "Mode:D Speed:G Load:I2 Key:X2");
  rules.removeData({0, 1}, 0);
  EXPECT_EQ(items(), "Load:G Key:X2");
  EXPECT_EQ(parameters->startTrigger->typeTrigger, oTarnTrigger::kManual);
  rules.removeData({0}, 0);
  add({"Front"});
  EXPECT_TRUE(rules.undoRemoval());
  EXPECT_TRUE(rules.undoRemoval());
  EXPECT_EQ(items(), before + " Front:G");
  EXPECT_EQ(list(), "Mode [Speed] Load Key Front");
  EXPECT_EQ(tree(), "Brakes[Wheels[Rear]] Engine[Status[Raw]]");
  EXPECT_EQ(item("Load").oTarnGraphIndex()->Caption, "Torque");
  EXPECT_EQ(item("Load").oTarnGraphIndex()->Color, 0x123456);
  EXPECT_EQ(parameters->startTrigger->typeTrigger, oTarnTrigger::kChannel);
  EXPECT_EQ(parameters->startTrigger->DataIndex, 2);
  EXPECT_FALSE(rules.undoRemoval());
}

TEST_F(Selection, UndoLeavesOutWhatWasAddedAgainAndIsForgottenWithTheConfiguration) {
  expandAll();
  add({"Speed", "Load"});
  item("Load").SetGraphIndex(0, 1);
  rules.removeData({0, 1}, 0);
  add({"Speed"});
  rules.moveUp(0);
  EXPECT_TRUE(rules.undoRemoval());
  EXPECT_EQ(items(), "Speed:G Load:I1");
  rules.removeData({0, 1}, 0);
  rules.setParameters(parameters);
  EXPECT_FALSE(rules.undoRemoval());
}

TEST_F(Selection, AnotherConfigurationFillsTheTreeAgain) {
  expandAll();
  add({"Wheels"});
  parameters->RemoveAll();
  EXPECT_EQ(list(), "Front [Rear]") << "shown until the new one comes";
  rules.setParameters(parameters);
  expandAll();
  EXPECT_EQ(tree(), "Brakes[Wheels[Front Rear]] Engine[Status[Key Load Mode Raw Speed]]");
  rules.setParameters(parameters);
  EXPECT_EQ(tree(), "Brakes[Wheels[Front Rear]] Engine[Status[Key Load Mode Raw Speed]]") << "left alone";
  add({"Key"});
  rules.Clear();
  EXPECT_EQ(list(), "");
  rules.setXmlSession(nullptr);
  EXPECT_EQ(tree(), "");
  EXPECT_FALSE(rules.undoRemoval());
}

TEST_F(Selection, TheFilterNarrowsTheTreeAndWhatIsGivenBack) {
  rules.setFilter("bar");
  EXPECT_EQ(tree(), "Brakes[...]");
  expandAll();
  add({"Wheels"});
  EXPECT_EQ(tree(), "Brakes[Wheels]");
  rules.setFilter("bar ");
  EXPECT_EQ(tree(), "") << "all of it is chosen";
  rules.removeData({0}, 0);
  EXPECT_EQ(tree(), "Brakes[Wheels[Front]]");
  rules.setFilter("speed");
  rules.removeData({0}, 0);
  EXPECT_EQ(tree(), "Engine[...]");
  rules.setShape('D');
  expandAll();
  EXPECT_EQ(tree(), "Engine[Speed (Status)]");
  rules.setFilter(" ");
  EXPECT_EQ(tree(), "Brakes[...] Engine[...]");
}

}  // namespace
}  // namespace tarnlog::test
