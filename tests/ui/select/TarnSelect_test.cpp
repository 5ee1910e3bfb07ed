#include "ui/select/TarnSelect.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include "tests/ui/select/SelectionFixture.h"
#include "ui/common/Convert.h"

namespace tarnlog::test {
namespace {

class SelectScreen : public testing::Test, protected SmallSelection {
 protected:
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
    return *screen.findChild<T*>(name);
  }
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
  void doubleClick(const QString& text) {
    const QPoint place = tree.visualRect(index(text)).center();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
  }
  void selectRows(const std::vector<int>& rows) {
    list.clearSelection();
    for (const int row : rows)
      list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  /// The rows as shown, selected ones in brackets.
  std::string rows() {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
      const QModelIndex at = list.model()->index(row, 0);
      texts << (list.selectionModel()->isSelected(at) ? "[" + at.data().toString() + "]"
                                                      : at.data().toString());
    }
    return fromQString(texts.join(' '));
  }
  /// What is expanded in the tree, with what is below: "Engine[Status[Key Load]] Brakes".
  std::string shown(const QModelIndex& parent = {}) {
    QStringList texts;
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
      const QModelIndex at = tree.model()->index(row, 0, parent);
      texts << at.data().toString();
      if (tree.isExpanded(at)) texts.back() += toQString("[" + shown(at) + "]");
    }
    return fromQString(texts.join(' '));
  }

  TarnSelect screen;
  QTreeView& tree = child<QTreeView>("TreeAllData");
  QTreeView& list = child<QTreeView>("ListDataToRecord");
  QSignalSpy edits{&screen, &TarnSelect::edited};
  QAbstractItemModelTester treeTester{tree.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
  QAbstractItemModelTester listTester{list.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(SelectScreen, AWalkWithMouseAndKeys) {
  doubleClick("Engine");
  EXPECT_EQ(shown(), "Brakes Engine[Status]");
  expand("Status");
  doubleClick("Speed");
  EXPECT_EQ(rows(), "[Speed]");
  doubleClick("Status");
  EXPECT_EQ(rows(), "Speed Key Load Mode [Raw]");
  EXPECT_EQ(shown(), "Brakes Engine[Status[]]");
  EXPECT_EQ(edits.count(), 2);

  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(rows(), "Speed Key Load [Raw] Mode");
  QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(rows(), "Speed Key Load Mode [Raw]");
  EXPECT_EQ(edits.count(), 4) << "down on the last row does nothing";

  selectRows({1, 3});
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(rows(), "Speed Load [Raw]");
  EXPECT_EQ(fromQString(index("Key").data().toString()), "Key");
  QTest::keyClick(&list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(rows(), "Speed Key Load [Mode] Raw");
  EXPECT_EQ(edits.count(), 6);
  selectRows({0});
  QTest::keyClick(&list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(rows(), "[Speed] Key Load Mode Raw") << "nothing to take back leaves the selection alone";
  EXPECT_EQ(edits.count(), 6);
}

TEST_F(SelectScreen, ButtonsActOnWhatIsSelected) {
  auto& addData = child<QPushButton>("addData");
  auto& removeData = child<QPushButton>("removeData");
  EXPECT_FALSE(addData.isEnabled());
  EXPECT_FALSE(removeData.isEnabled());
  expand("Engine");
  expand("Brakes");
  select({"Engine"});
  addData.click();
  EXPECT_EQ(rows(), "");
  select({"Speed", "Wheels", "Key"});
  addData.click();
  EXPECT_EQ(rows(), "Front Rear Key [Speed]");
  EXPECT_EQ(edits.count(), 1);
  screen.findChild<QAbstractButton*>("dataUp")->click();
  EXPECT_EQ(rows(), "Front Rear [Speed] Key");
  removeData.click();
  EXPECT_EQ(rows(), "Front Rear [Key]");
  selectRows({0, 1, 2});
  removeData.click();
  EXPECT_EQ(rows(), "");
  EXPECT_FALSE(removeData.isEnabled());
  EXPECT_EQ(items(), "");
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

TEST_F(SelectScreen, TabGoesThroughTheScreenAsItIsSeen) {
  expand("Engine");
  select({"Status"});
  child<QPushButton>("addData").click();
  select({"Engine"});
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
  child<QPushButton>("addData").click();
  auto& listFilter = child<QLineEdit>("filterToRecord");
  QTest::keyClicks(&listFilter, "km/h");
  EXPECT_EQ(rows(), "[Speed]");
  EXPECT_FALSE(screen.findChild<QAbstractButton*>("dataUp")->isEnabled());
  const auto& hidden = child<QLabel>("hiddenToRecord");
  EXPECT_EQ(fromQString(hidden.text()), "4 hidden");
  child<QPushButton>("removeData").click();
  EXPECT_EQ(rows(), "");
  listFilter.setText("o");
  EXPECT_EQ(rows(), "Load Mode");
  list.setCurrentIndex(list.model()->index(1, 0));
  child<QPushButton>("removeData").click();
  EXPECT_EQ(rows(), "[Load]") << "the filter stays, and what is selected can be seen";
  EXPECT_EQ(fromQString(hidden.text()), "2 hidden");
  select({"Speed"});
  child<QPushButton>("addData").click();
  EXPECT_EQ(rows(), "Load");
  EXPECT_EQ(fromQString(hidden.text()), "3 hidden");
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
  EXPECT_EQ(rows(), "Load [Key] Speed");
  EXPECT_TRUE(drop(list, {at(0), at(1)}, list, -1));
  EXPECT_EQ(rows(), "Speed [Load] Key");
  EXPECT_TRUE(drop(list, {at(2)}, list, 0));
  EXPECT_EQ(items(), "Key:G Speed:G Load:G");
  EXPECT_TRUE(drop(list, {at(1)}, tree, 0));
  EXPECT_EQ(rows(), "[Key] Load");
  EXPECT_TRUE(index("Speed").isValid());
  EXPECT_FALSE(drop(tree, {index("Speed")}, tree, 0));

  TarnSelect other;
  other.setXmlSession(document);
  other.setParameters(parameters);
  EXPECT_FALSE(drop(tree, {index("Speed")}, *other.findChild<QTreeView*>("ListDataToRecord"), -1));
}

TEST_F(SelectScreen, ColumnsShareTheListAndScaleWithIt) {
  QHeaderView& header = *list.header();
  const auto title = [&](int column, int role) {
    return fromQString(list.model()->headerData(column, Qt::Horizontal, role).toString());
  };
  EXPECT_EQ(title(0, Qt::DisplayRole) + title(1, Qt::DisplayRole) + title(2, Qt::DisplayRole) +
                title(3, Qt::DisplayRole),
            "DataRequestECUDevice");
  EXPECT_EQ(title(2, Qt::UserRole) + title(3, Qt::UserRole), "UCEDevice");
  const int before = list.viewport()->width();
  EXPECT_NEAR(header.sectionSize(0), before / 3.0 - 4, 1);
  EXPECT_NEAR(header.sectionSize(3), before / 6.0, 1);
  header.resizeSection(0, 50);
  screen.resize(1500, 500);
  const double growth = static_cast<double>(list.viewport()->width()) / before;
  ASSERT_GT(growth, 1.3);
  EXPECT_NEAR(header.sectionSize(0), 50 * growth, 1);
  EXPECT_NEAR(header.sectionSize(1), before / 3.0 * growth, 2);
}

TEST_F(SelectScreen, SaysWhichDataCannotBeRemovedAndWhatDataAre) {
  expand("Engine");
  select({"Speed"});
  const QString tip = index("Speed").data(Qt::ToolTipRole).toString();
  for (const char* part : {"Speed", "Status", "Engine", "Wheel sensor", "km/h", "0 to 250"})
    EXPECT_TRUE(tip.contains(part)) << part;
  child<QPushButton>("addData").click();
  item("Speed").RequestName = "Gone";
  child<QPushButton>("removeData").click();
  const auto* const box = screen.findChild<QMessageBox*>();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(fromQString(box->text()), "Internal error, data Speed not found");
  EXPECT_EQ(rows(), "[Speed]");
  EXPECT_EQ(edits.count(), 1);
}

TEST_F(SelectScreen, SurvivesTheReplacementOfConfigurationAndVehicle) {
  expand("Engine");
  doubleClick("Status");
  parameters->RemoveAll();
  list.viewport()->grab();
  EXPECT_EQ(rows(), "Key Load Mode Raw [Speed]");
  screen.setParameters(parameters);
  EXPECT_EQ(rows(), "");
  EXPECT_EQ(shown(), "Brakes Engine[Status]");
  EXPECT_TRUE(index("Speed").isValid());
  screen.setXmlSession(nullptr);
  screen.setParameters(nullptr);
  EXPECT_EQ(tree.model()->rowCount() + screen.DisplayDataList(), 0);
  screen.Clear();
}

}  // namespace
}  // namespace tarnlog::test
