#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>
#include <limits>

#include "tests/support/BrokenStore.h"
#include "tests/support/Pixels.h"
#include "tests/ui/acquisition/ViewRig.h"
#include "ui/acquisition/TabStrip.h"
#include "ui/acquisition/ValueListModel.h"
#include "ui/acquisition/ValueListView.h"

namespace tarnlog::test {
namespace {

QTreeView& listOf(const ViewRig& rig) { return rig.child<QTreeView>("LVvisuText"); }

/// By keyboard, from the list's menu. False when the entry is grey.
bool choose(QTreeView& list, const QString& entry) {
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, list.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&list, &asked);
  QMenu* const menu = list.findChild<QMenu*>();
  for (QAction* const action : menu->actions())
    if (action->text() == entry && action->isEnabled()) {
      menu->setActiveAction(action);
      QTest::keyClick(menu, Qt::Key_Return);
    }
  const bool chosen = !menu->isVisible();
  delete menu;
  return chosen;
}

std::string row(const QTreeView& list, int number) {
  std::string cells;
  for (int column = 0; column < list.model()->columnCount(); ++column)
    cells += (column == 0 ? "" : "|") + list.model()->index(number, column).data().toString().toStdString();
  return cells;
}

std::string seenRows(const QTreeView& list) {
  std::string names;
  for (int number = 0; number < list.model()->rowCount(); ++number)
    if (!list.isRowHidden(number, {}))
      names += list.model()->index(number, 0).data().toString().section(' ', -1).toStdString() + ' ';
  return names;
}

/// A peak between two refreshes of the list is a peak.
TEST(ValueListView, ExtremesAreThoseOfAllCyclesUntilTheyAreReset) {
  ViewRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.speed.setValue(20.0, "20.0");
  rig.start();
  QTreeView& list = listOf(rig);
  EXPECT_FALSE(choose(list, "Reset minimum and maximum")) << "there are none";
  EXPECT_TRUE(choose(list, "Maximum"));
  EXPECT_TRUE(choose(list, "Minimum"));
  QTest::keyClick(&list, Qt::Key_Return);
  rig.tick();
  ASSERT_TRUE(rig.acq.Recording());

  std::string shown;
  const auto poll = [&](ferrox3::Value value, const char* text) {
    rig.speed.setValue(std::move(value), text);
    rig.tick(100);
    shown += ' ' + list.model()->index(0, 1).data().toString().toStdString();
  };
  for (int i = 0; i < 10; ++i) poll(i == 8 ? 99.5 : 30.0, i == 8 ? "99.5" : "30.0");
  poll(std::numeric_limits<double>::quiet_NaN(), "none");
  poll(5.25, "5.3");
  for (int i = 0; i < 10; ++i) poll(40.0, "40.0");
  EXPECT_EQ(shown.find("99.5"), std::string::npos) << "the row was due";
  EXPECT_EQ(row(list, 0), "Engine : Speed|40.0|km/h|5.3|99.5");

  rig.view.setPaused(true);
  EXPECT_TRUE(choose(list, "Reset minimum and maximum"));
  EXPECT_EQ(row(list, 0), "Engine : Speed|40.0|km/h||");
  rig.view.setPaused(false);
  for (int i = 0; i < 10; ++i) poll(40.0, "40.0");
  EXPECT_EQ(row(list, 0), "Engine : Speed|40.0|km/h|40.0|40.0") << "of a value that stays the same, too";
  EXPECT_TRUE(choose(list, "Minimum"));
  EXPECT_EQ(row(list, 0), "Engine : Speed|40.0|km/h|40.0");

  rig.acq.AskStopAcqNow();
  for (int i = 0; i < 3; ++i) rig.tick();
  rig.speed.setValue(7.0, "7.0");
  rig.start();
  EXPECT_EQ(row(list, 0), "Engine : Speed|7.0|km/h|7.0") << "each acquisition has its own";
}

TEST(ValueListView, KeepsWhatItsUserChoseAndTakesNoNonsense) {
  MemorySettingsStore settings;
  ValueListModel values;
  const auto told = [&](SettingsStore* store) {
    ValueListView list(values, store);
    return std::to_string(list.choices().zoom()) + ' ' + std::to_string(values.columnCount()) +
           (list.header()->stretchLastSection() ? "" : " near");
  };
  {
    ValueListView list(values, &settings);
    list.zoomIn();
    list.choose(ListChoices::kMaximum, true);
    list.choose(ListChoices::kNearNames, true);
  }
  EXPECT_EQ(told(&settings), "110 4 near");
  EXPECT_EQ(told(nullptr), "100 3");
  for (const char* const name : {"ValueListZoom", "ValueListMinimum", "ValueListMaximum", "ValuesNearNames"})
    settings.write(name, "99999999999999");
  EXPECT_EQ(told(&settings), "100 3");
  BrokenStore broken;
  ValueListView list(values, &broken);
  list.zoomOut();
  list.choose(ListChoices::kMinimum, true);
  EXPECT_EQ(list.choices().zoom(), 90);
  EXPECT_EQ(values.columnCount(), 4);
}

TEST(ValueListView, WhatIsTypedInTheFilterIsText) {
  ViewRig rig;
  rig.load.setValue(50.0);
  rig.add(rig.status.addData("Débit"));
  rig.start();
  QTreeView& list = listOf(rig);
  auto& box = rig.child<QLineEdit>("ListFilter");
  const auto& count = rig.child<QLabel>("LblFilter");
  QWidget& button = rig.child("CommandStartStop");
  EXPECT_FALSE(count.isVisible());
  rig.child<TabStrip>("TabStripVisu").select("GRAPH");
  EXPECT_FALSE(box.isVisible());
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(box.hasFocus());
  EXPECT_TRUE(list.isVisible());

  QTest::keyClicks(&box, "p fdg");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) QTest::keyClick(&box, key);
  EXPECT_EQ(box.text(), "p fdg ");
  EXPECT_FALSE(rig.view.paused());
  EXPECT_FALSE(rig.acq.startPending());
  EXPECT_EQ(rig.filesWith("event"), 0);
  EXPECT_EQ(seenRows(list) + count.text().toStdString(), "0 of 3");

  QTest::keyClick(&button, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(&box, "engine LO");
  EXPECT_EQ(seenRows(list) + count.text().toStdString(), "Load 1 of 3");
  rig.acq.StartReadingData(rig.parameters);
  EXPECT_EQ(seenRows(list) + count.text().toStdString(), "Load 1 of 3") << "of the next acquisition, too";
  box.setText("debit");
  EXPECT_EQ(seenRows(list), "Débit ");

  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_EQ(seenRows(list), "Speed Load Débit ");
  EXPECT_TRUE(button.hasFocus());
  EXPECT_FALSE(count.isVisible());
  QTest::keyClick(&button, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_TRUE(list.hasFocus());
}

/// Rows that the filter hides between two that are seen are not copied; all others are painted when a pause
/// ends, also when the first and the last row are hidden.
TEST(ValueListView, CopiesAndPaintsTheRowsThatAreSeen) {
  ViewRig rig;
  rig.add(rig.status.addData("Load 2", ferrox3::kString, "a"));
  rig.add(rig.status.addData("Speed 2", ferrox3::kDouble, "km/h"));
  rig.speed.setValue(10.0);
  rig.load.setValue(51.5);
  rig.start();
  QTreeView& list = listOf(rig);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(
      QGuiApplication::clipboard()->text(),
      "Engine : Speed\t10\tkm/h\nEngine : Load\t51.5\t%\nEngine : Load 2\t\ta\nEngine : Speed 2\t0\tkm/h");
  rig.child<QLineEdit>("ListFilter").setText("load");
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "Engine : Load\t51.5\t%\nEngine : Load 2\t\ta");
  QGuiApplication::clipboard()->clear();
  choose(list, "Minimum");
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_FALSE(QGuiApplication::clipboard()->text().isEmpty()) << "a new column leaves the rows selected";

  list.clearSelection();
  rig.child("log").setFocus();
  rig.view.setPaused(true);
  rig.load.setValue(88.0);
  rig.tick();
  QApplication::processEvents();
  showPictures(rig.view, 20);
  PaintSpy spy(*list.viewport());
  rig.view.setPaused(false);
  showPictures(rig.view, 20);
  EXPECT_FALSE(spy.painted.isEmpty());
}

TEST(ValueListView, ColumnsKeepToTheListWithExtremesAndGoNearNamesWhenAsked) {
  ViewRig rig;
  rig.start();
  QTreeView& list = listOf(rig);
  const auto resized = [&](int width) {
    rig.view.resize(width, 500);
    return list.viewport()->width();
  };
  choose(list, "Minimum");
  choose(list, "Maximum");
  for (const int width : {480, 1600}) {
    const int part = resized(width) / 11;
    EXPECT_NEAR(list.columnWidth(0), 4 * part, 4);
    for (const int column : {1, 3}) EXPECT_NEAR(list.columnWidth(column), 2 * part, 3) << column;
    EXPECT_NEAR(list.columnWidth(2), part, 2);
    EXPECT_NEAR(list.header()->length(), list.viewport()->width(), 1);
  }
  choose(list, "Values near their names");
  const int name = list.fontMetrics().horizontalAdvance("Engine : Speed");
  EXPECT_GT(list.columnWidth(0), name);
  EXPECT_LT(list.columnWidth(0), name + 30);
  EXPECT_LT(list.columnWidth(1), 200);
  EXPECT_LT(list.columnWidth(4), 200) << "the last column does not run away";
  const int near = list.columnWidth(0);
  rig.add(rig.status.addData("Temperature behind the catalyst"));
  rig.acq.StartReadingData(rig.parameters);
  EXPECT_GT(list.columnWidth(0), near + 40);
  EXPECT_LE(resized(480), 480);
  EXPECT_LE(list.header()->length(), list.viewport()->width()) << "never wider than by parts";
  for (const char* const entry : {"Values near their names", "Minimum", "Maximum"}) choose(list, entry);
  const int seventh = resized(900) / 7;
  EXPECT_NEAR(list.columnWidth(0), 4 * seventh, 3);
  EXPECT_NEAR(list.columnWidth(1), 2 * seventh, 2);
  EXPECT_NEAR(list.columnWidth(2), seventh, 8);
}

}  // namespace
}  // namespace tarnlog::test
