#include "ui/select/TarnSelect.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QToolBar>

#include "catalogue/FonctionsSelection.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScopeText.h"
#include "tests/support/SmallVehicle.h"
#include "tests/support/TreeText.h"
#include "tests/support/WidgetText.h"
#include "ui/common/Convert.h"

namespace tarnlog::test {
namespace {

/// The catalogue of a small vehicle and a configuration without data.
struct SmallSelection : testing::Test {
  std::shared_ptr<SessionDocument> document =
      std::make_shared<SessionDocument>(std::move(SmallVehicle().catalogue));
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(MemorySettingsStore());

  std::string items() const { return scopesText(*parameters, &oTarnScope::DataName); }
  oTarnScope& item(const std::string& name) const {
    for (oTarnScope& scope : *parameters)
      if (scope.DataName == name) return scope;
    throw TarnError(1, "SmallSelection", name);
  }
};

struct Selection : SmallSelection {
  Selection() {
    rules.setXmlSession(document);
    rules.setParameters(parameters);
    expandAll();
  }
  void expandAll() {
    const auto ecus = rules.tree().children(CatalogueTree::kRoot);
    for (const CatalogueNode ecu : ecus) rules.expand(ecu);
  }
  bool addTogether(const std::vector<std::string>& names, std::size_t before = SelectionRules::kNoRow) {
    std::vector<CatalogueNode> nodes;
    nodes.reserve(names.size());
    for (const std::string& name : names) nodes.push_back(nodeNamed(rules.tree(), name));
    return rules.addData(nodes, before);
  }
  /// One after the other.
  bool add(const std::vector<std::string>& names) {
    bool added = false;
    for (const std::string& name : names) added |= addTogether({name});
    return added;
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
  EXPECT_TRUE(addTogether({"Speed", "Key", "Mode"}));
  EXPECT_EQ(items(), "Key:G Mode:D Speed:G") << "as they stand in the tree";
  EXPECT_EQ(list(), "Key Mode [Speed]");
  EXPECT_EQ(tree(), "Brakes[Wheels[Front Rear]] Engine[Status[Load Raw]]");
  oTarnScope& speed = item("Speed");
  EXPECT_EQ(speed.EcuName + speed.FunctionName + speed.RequestName + speed.DeviceName + speed.Unit,
            "EngineInjectionStatusWheel sensorkm/h");
  EXPECT_EQ(speed.FunctionAddress, 16);
  EXPECT_EQ(parameters->Item(speed.DataKey), &speed);
  const oTarnGraph& graph = *speed.oTarnGraph();
  EXPECT_EQ(std::tuple(graph.AxeYAuto, graph.AxeYmaxi, graph.points, graph.position.left),
            std::tuple(true, 250, 500, -1));

  speed.SetGraphIndex(0, 1);
  watch(*parameters->startTrigger, 3);
  EXPECT_TRUE(addTogether({"Front", "Rear"}, 0));
  EXPECT_EQ(items(), "Front:G Rear:G Key:G Mode:D Speed:I3");
  EXPECT_EQ(list(), "Front [Rear] Key Mode Speed") << "the rest moves down";
  EXPECT_EQ(parameters->startTrigger->DataIndex, 5);
  FillCatalogueTree(*document, rules.tree(), CatalogueKeys(), kFullDepth);
  EXPECT_FALSE(add({"Speed"})) << "a key that the configuration has is not added twice";
}

TEST_F(Selection, ARequestOrDeviceStandsForWhatIsLeftBelowItAndAnEcuForNothing) {
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
  EXPECT_FALSE(rules.addsOnDoubleClick(nodeNamed(rules.tree(), "Wheel sensor")));
  EXPECT_TRUE(add({"Wheel sensor"}));
  EXPECT_EQ(list(), "Load Key Mode Raw [Speed]");
}

// An item without a row must not let the wrong one be removed or moved.
TEST_F(Selection, ItemsThatTheSessionDoesNotOfferStayWithoutARow) {
  parameters->Add("x").DataName = "Ghost";
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

TEST_F(Selection, UndoPutsBackItemsTheirPlacesAndWhatReferredToThem) {
  add({"Mode", "Speed", "Load", "Key"});
  item("Load").SetGraphIndex(0x123456, 2);
  item("Load").ChangeCaption("Torque");
  item("Key").SetGraphAxeX("", true, 0, 100, 2);
  watch(*parameters->startTrigger, 2);
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
  rules.removeData({1, 2}, 0);
  addTogether({"Speed"}, 0);
  EXPECT_TRUE(rules.undoRemoval());
  EXPECT_EQ(items(), "Speed:G Mode:D Load:I1 Key:G Front:G") << "without what was added again";
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

// --- the screen

struct SelectScreen : SmallSelection {
  SelectScreen() {
    treeTester.setUseFetchMore(false);  // it would build all ECUs
    screen.resize(900, 500);
    screen.show();
    QApplication::setActiveWindow(&screen);
    screen.setXmlSession(document);
    screen.setParameters(parameters);
  }
  template <class T>
  T& child(const char* name) {
    return childOf<T>(screen, name);
  }
  void click(const char* button) { child<QAbstractButton>(button).click(); }
  bool enabled(const char* button) { return child<QAbstractButton>(button).isEnabled(); }
  /// The index of that text, in the tree as far as it is built.
  QModelIndex index(const QString& text) {
    QAbstractItemModel& model = *tree.model();
    const auto found = model.match(model.index(0, 0), Qt::DisplayRole, text, 1,
                                   Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
    return found.isEmpty() ? QModelIndex() : found.front();
  }
  void expand(const QString& text) {
    tree.model()->fetchMore(index(text));
    tree.expand(index(text));
  }
  void select(const QStringList& texts) {
    tree.clearSelection();
    for (const QString& text : texts)
      tree.selectionModel()->setCurrentIndex(index(text), QItemSelectionModel::Select);
  }
  void open(const QString& text) { doubleClick(tree, index(text)); }
  void selectRows(const std::vector<int>& rows) {
    list.clearSelection();
    for (const int row : rows)
      list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  /// The rows, selected ones with a star.
  std::string rows() { return itemsText(list); }
  /// The tree as far as it is expanded, whatever is selected.
  std::string shown() {
    std::string text = itemsText(tree);
    std::erase(text, '*');
    return text;
  }

  TarnSelect screen;
  QTreeView& tree = child<QTreeView>("TreeAllData");
  QTreeView& list = child<QTreeView>("ListDataToRecord");
  QSignalSpy edits{&screen, &TarnSelect::edited};
  QAbstractItemModelTester treeTester{tree.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
  QAbstractItemModelTester listTester{list.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(SelectScreen, AWalkWithMouseAndKeys) {
  EXPECT_FALSE(enabled("addData") || enabled("removeData"));
  open("Engine");
  EXPECT_EQ(shown(), "Brakes Engine[Status]");
  select({"Engine"});
  click("addData");
  EXPECT_EQ(rows(), "");
  expand("Status");
  open("Speed");
  open("Status");
  EXPECT_EQ(rows(), "Speed Key Load Mode *Raw");
  EXPECT_EQ(shown(), "Brakes Engine[Status[]]");
  EXPECT_EQ(edits.count(), 2);

  list.setFocus();
  click("dataUp");
  QTest::keyClick(&list, Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(rows(), "Speed Key *Raw Load Mode");
  for (int i = 0; i < 3; ++i) QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(rows(), "Speed Key Load Mode *Raw");
  EXPECT_EQ(edits.count(), 6) << "down on the last row does nothing";

  selectRows({1, 3});
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(rows(), "Speed Load *Raw");
  EXPECT_EQ(shown(), "Brakes Engine[Status[Key Mode]]");
  QTest::keyClick(&list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(rows(), "Speed Key Load *Mode Raw");
  EXPECT_EQ(edits.count(), 8);
  selectRows({0});
  QTest::keyClick(&list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(rows(), "*Speed Key Load Mode Raw") << "nothing to take back leaves the selection alone";

  // Another configuration, and no vehicle.
  parameters->RemoveAll();
  list.viewport()->grab();
  EXPECT_EQ(rows(), "*Speed Key Load Mode Raw");
  screen.setParameters(parameters);
  QTest::keyClick(&list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(rows(), "");
  expand("Status");
  EXPECT_EQ(shown(), "Brakes Engine[Status[Key Load Mode Raw Speed]]");
  screen.setXmlSession(nullptr);
  screen.setParameters(nullptr);
  EXPECT_EQ(shown(), "");
  EXPECT_FALSE(enabled("removeData"));
}

/// The button keeps the focus, which must not slip to "Remove data" under the finger.
TEST_F(SelectScreen, AddIsEnabledWhileItAddsSomething) {
  auto& add = child<QAbstractButton>("addData");
  screen.setParameters(nullptr);
  expand("Brakes");
  expand("Wheels");
  select({"Front"});
  EXPECT_FALSE(add.isEnabled()) << "there is no configuration";
  screen.setParameters(parameters);
  expand("Brakes");
  expand("Wheels");
  select({"Brakes"});
  EXPECT_FALSE(add.isEnabled()) << "an ECU stands for no data";
  select({"Front"});
  add.setFocus();
  QTest::keyClick(&add, Qt::Key_Space);
  EXPECT_TRUE(add.hasFocus());
  QTest::keyClick(&add, Qt::Key_Space);
  EXPECT_EQ(rows(), "Front *Rear");
  EXPECT_FALSE(add.isEnabled()) << "the request has nothing left";
  EXPECT_TRUE(list.hasFocus());
}

TEST_F(SelectScreen, TheShapeIsChosenWithTheToolbar) {
  const auto shape = [&](const char* key) { return screen.findChild<QAction*>(key); };
  EXPECT_TRUE(shape("R")->isChecked());
  expand("Engine");
  select({"Engine"});
  shape("D")->trigger();
  EXPECT_TRUE(shape("D")->isChecked() && !shape("R")->isChecked());
  EXPECT_EQ(shown(), "Brakes Engine[Key (Status) Load (Status) Mode (Status) Raw (Status) Speed (Status)]");
  shape("O")->trigger();
  expand("Brakes");
  EXPECT_EQ(shown(), "Brakes[] Engine[Wheel sensor]");
  screen.setXmlSession(document);
  EXPECT_TRUE(shape("R")->isChecked());
  EXPECT_EQ(shown(), "Brakes Engine");
}

TEST_F(SelectScreen, FiltersFindWhileTyping) {
  auto& filter = child<QLineEdit>("filterAllData");
  expand("Brakes");
  QTest::keyClicks(&filter, "speed");
  EXPECT_EQ(shown(), "Engine[Status[Speed]]");
  select({"Speed"});
  QTest::keyClick(&filter, Qt::Key_Escape);
  EXPECT_EQ(shown(), "Brakes[Wheels] Engine[Status[Key Load Mode Raw Speed]]")
      << "the finding stays in sight";
  select({"Status"});
  click("addData");
  auto& listFilter = child<QLineEdit>("filterToRecord");
  QTest::keyClicks(&listFilter, "km/h");
  EXPECT_EQ(rows(), "*Speed");
  EXPECT_FALSE(enabled("dataUp"));
  const auto& hidden = child<QLabel>("hiddenToRecord");
  EXPECT_EQ(fromQString(hidden.text()), "4 hidden");
  click("removeData");
  EXPECT_EQ(rows(), "");
  listFilter.setText("o");
  EXPECT_EQ(rows(), "Load Mode");
  list.setCurrentIndex(list.model()->index(1, 0));
  click("removeData");
  EXPECT_EQ(rows(), "*Load") << "the filter stays, and what is selected can be seen";
  EXPECT_EQ(fromQString(hidden.text()), "2 hidden");
  listFilter.clear();
  EXPECT_FALSE(hidden.isVisible());
}

TEST_F(SelectScreen, DragsFromTreeToListInsideTheListAndBack) {
  expand("Engine");
  // At the upper edge of that row, or below all rows.
  const auto drop = [](const QTreeView& from, const QModelIndexList& dragged, QTreeView& to, int row) {
    const std::unique_ptr<QMimeData> data(from.model()->mimeData(dragged));
    if (data == nullptr) return false;
    const QModelIndex at = to.model()->index(row, 0);
    const QPoint place = at.isValid() ? to.visualRect(at).topLeft() + QPoint(5, 1)
                                      : to.viewport()->rect().bottomLeft() + QPoint(5, -5);
    QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(to.viewport(), &enter);
    QDragMoveEvent move(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(to.viewport(), &move);
    if (!move.isAccepted()) return false;
    QDropEvent dropping(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(to.viewport(), &dropping);
    return dropping.isAccepted();
  };
  const auto at = [&](int row) { return list.model()->index(row, 0); };
  EXPECT_FALSE(drop(tree, {index("Engine")}, list, -1));
  EXPECT_TRUE(drop(tree, {index("Speed"), index("Load")}, list, -1));
  EXPECT_TRUE(drop(tree, {index("Key")}, list, 1));
  EXPECT_EQ(rows(), "Load *Key Speed");
  EXPECT_TRUE(drop(list, {at(0), at(2)}, list, 2));
  EXPECT_EQ(rows(), "Key *Load Speed");
  EXPECT_TRUE(drop(list, {at(1)}, list, 0));
  EXPECT_TRUE(drop(list, {at(0), at(1)}, list, -1));
  EXPECT_EQ(rows(), "Speed *Load Key");
  EXPECT_TRUE(drop(list, {at(2)}, list, 0));
  EXPECT_EQ(items(), "Key:G Speed:G Load:G");
  EXPECT_TRUE(drop(list, {at(1)}, tree, 0));
  EXPECT_EQ(rows(), "*Key Load");
  EXPECT_TRUE(index("Speed").isValid());
  EXPECT_FALSE(drop(tree, {index("Speed")}, tree, 0));

  TarnSelect other;
  other.setXmlSession(document);
  other.setParameters(parameters);
  EXPECT_FALSE(drop(tree, {index("Speed")}, *other.findChild<QTreeView*>("ListDataToRecord"), -1));
}

TEST_F(SelectScreen, SaysWhichDataCannotBeRemovedAndWhatDataAre) {
  expand("Engine");
  select({"Speed"});
  const QString tip = index("Speed").data(Qt::ToolTipRole).toString();
  for (const char* part : {"Speed", "Status", "Engine", "Wheel sensor", "km/h", "0 to 250"})
    EXPECT_TRUE(tip.contains(part)) << part;
  click("addData");
  item("Speed").RequestName = "Gone";
  click("removeData");
  const auto* const box = screen.findChild<QMessageBox*>();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(fromQString(box->text()), "Internal error, data Speed not found");
  EXPECT_EQ(rows(), "*Speed");
  EXPECT_EQ(edits.count(), 1);
}

TEST_F(SelectScreen, TabGoesThroughTheScreenAsItIsSeen) {
  expand("Engine");
  select({"Status"});
  click("addData");
  expand("Brakes");
  select({"Wheels"});
  auto& bar = child<QToolBar>("TbSelect");
  bar.widgetForAction(bar.actions().front())->setFocus();
  QStringList names;
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    names << QApplication::focusWidget()->objectName();
  }
  EXPECT_EQ(fromQString(names.join(' ')),
            "  filterAllData TreeAllData addData removeData dataUp dataDown filterToRecord ListDataToRecord");
}

}  // namespace
}  // namespace tarnlog::test
