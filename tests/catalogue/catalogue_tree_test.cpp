#include <gtest/gtest.h>

#include <string>

#include "catalogue/CatalogueSearch.h"
#include "catalogue/FoldedText.h"
#include "catalogue/FonctionsSelection.h"
#include "tests/support/SmallVehicle.h"
#include "tests/support/TreeText.h"

namespace tarnlog::test {
namespace {

/// A tree over a small vehicle: ECUs "Engine" and "Brakes", in document order.
class FilledTree : public testing::Test {
 protected:
  void fill(char mode, std::int16_t depth = kLazyDepth) {
    tree.mode = mode;
    FillCatalogueTree(vehicle.catalogue, tree, chosen, depth);
  }
  std::string expand(const std::string& node) {
    ExpandCatalogueNode(tree, nodeNamed(tree, node), chosen, -1);
    return treeText(tree);
  }
  XmlElement data(const char* request, const char* name) {
    const XmlElement inEngine = FindSessionData(vehicle.catalogue, "Engine", request, name, 0);
    return inEngine ? inEngine : FindSessionData(vehicle.catalogue, "Brakes", request, name, 0);
  }
  void choose(const char* request, const char* name) { chosen.add(keyNumber(data(request, name))); }
  CatalogueImage imageOf(const std::string& node) { return tree.image(nodeNamed(tree, node)); }
  std::string find(const std::string& text) {
    CatalogueSearch::Found found;
    CatalogueSearch(vehicle.catalogue).find(text, chosen, found);
    tree.shown = &found.elements;
    fill('R', kFullDepth);
    tree.shown = nullptr;
    return treeText(tree);
  }

  SmallVehicle vehicle;
  CatalogueTree tree;
  CatalogueKeys chosen;
};

TEST_F(FilledTree, EcusComeFirstAndAreBuiltOnce) {
  fill('R');
  EXPECT_EQ(treeText(tree), "Brakes[...] Engine[...]");
  choose("Status", "Load");
  EXPECT_EQ(expand("Engine"), "Brakes[...] Engine[Status[Key Mode Raw Speed]]");
  chosen.clear();
  EXPECT_EQ(expand("Engine"), "Brakes[...] Engine[Status[Key Mode Raw Speed]]");
  EXPECT_EQ(imageOf("Status"), CatalogueImage::request);
  EXPECT_EQ(imageOf("Engine"), CatalogueImage::ecu);
  FillCatalogueTree(SessionDocument(), tree, chosen, kLazyDepth);
  EXPECT_EQ(treeText(tree), "");
}

TEST_F(FilledTree, InShapeODevicesOfOneNameAreOneNodeOverAllEcus) {
  ScriptedSession session;
  auto& request = session.addEcu("E1", "F", 1).addRequest("R");
  request.addData("z").withDevice("Pump");
  request.addData("a").withDevice("Pump", true);
  request.addData("b").withDevice("Lamp");
  request.addData("none");
  auto& second = session.addEcu("E2", "G", 2);
  second.addRequest("S").addData("m").withDevice("Pump");
  second.removeFromTable("m");
  vehicle.catalogue = BuildSessionDocument(session);
  chosen.add(keyNumber(FindSessionData(vehicle.catalogue, "E1", "R", "b", 0)));
  fill('O');
  EXPECT_EQ(expand("E1"), "E1[Lamp Pump[a (R)! z (R)]] E2[...]");
  EXPECT_EQ(expand("E2"), "E1[Lamp Pump[a (R)! m (S) z (R)]] E2");
  EXPECT_EQ(imageOf("m (S)"), CatalogueImage::reference);
  EXPECT_FALSE(tree.content(nodeNamed(tree, "Pump")).tag);
  EXPECT_EQ(tree.find("KPump"), nodeNamed(tree, "Pump"));
}

TEST_F(FilledTree, GivesDataBackWhereTheyStood) {
  for (const char mode : {'R', 'D', 'O'}) {
    chosen.clear();
    fill(mode, kFullDepth);
    const std::string before = treeText(tree);
    for (const char* name : {"Speed", "Mode"}) {
      const CatalogueNode node = tree.find(data("Status", name).attributeOrEmpty("c"));
      if (node != CatalogueTree::kNone) tree.remove(node);
    }
    EXPECT_NE(treeText(tree), before);
    for (const char* name : {"Mode", "Speed", "Mode"}) GiveDataNodeBack(tree, data("Status", name));
    EXPECT_EQ(treeText(tree), before) << mode;
  }
  fill('R');
  GiveDataNodeBack(tree, data("Status", "Speed"));
  EXPECT_EQ(treeText(tree), "Brakes[...] Engine[...]");
  EXPECT_EQ(expand("Engine"), "Brakes[...] Engine[Status[Key Load Mode Raw Speed]]") << "among the others";
  fill('R', kFullDepth);
  tree.remove(nodeNamed(tree, "Engine"));
  GiveDataNodeBack(tree, data("Status", "Speed"));
  EXPECT_EQ(treeText(tree), "Brakes[Wheels[Front Rear]] Engine[Status[Speed]]") << "with what is above it";
  tree.mode = 'O';
  GiveDataNodeBack(tree, data("Status", "Load"));
  EXPECT_EQ(treeText(tree), "Brakes[Wheels[Front Rear]] Engine[Status[Speed]]") << "no device, no place";
}

TEST_F(FilledTree, TellsReferenceDefinitionsAndRequestsWithoutAName) {
  ScriptedSession session;
  auto& ecu = session.addEcu("E", "F", 1);
  ecu.addRequest("A").addData("Twice");
  ecu.addRequest("", "21 01").addData("Speed");
  ecu.pointTableTo(ecu.addRequest("B").addData("Twice"));
  vehicle.catalogue = BuildSessionDocument(session);
  fill('R');
  EXPECT_EQ(expand("E"), "E[[Speed] A[Twice] B[Twice]]") << "no name is not an ECU to build";
  fill('D', kFullDepth);
  EXPECT_EQ(imageOf("Twice (A)"), CatalogueImage::data);
  EXPECT_EQ(imageOf("Twice (B)"), CatalogueImage::reference);
}

TEST_F(FilledTree, SearchFindsEveryWordInNameUnitRequestOrEcu) {
  EXPECT_EQ(find("speed"), "Engine[Status[Speed]]");
  EXPECT_EQ(find("BAR"), "Brakes[Wheels[Front Rear]]");
  EXPECT_EQ(find("wheel re"), "Brakes[Wheels[Rear]]");
  EXPECT_EQ(find(" status  engine o "), "Engine[Status[Load Mode]]");
  EXPECT_EQ(find("dsp"), "") << "not across two texts";
  EXPECT_EQ(find("engine bar"), "");
  choose("Status", "Load");
  choose("Wheels", "Front");
  EXPECT_EQ(find("o"), "Engine[Status[Mode]]") << "chosen data are not found, nor what is above them alone";
}

TEST(FoldedText, LeavesOutCaseAndAccents) {
  EXPECT_EQ(folded("DÉBIT d'air Ç ÿ Æ 20 °C"), "debit d'air c y Æ 20 °c");
  EXPECT_LT(compareFolded("débit", "Decrease"), 0);
  EXPECT_EQ(compareFolded("Über", "uber"), 0);
  EXPECT_LT(compareFolded("ab", "abc"), 0);
}

}  // namespace
}  // namespace tarnlog::test
