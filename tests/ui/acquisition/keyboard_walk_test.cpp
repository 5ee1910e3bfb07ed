#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QTreeView>

#include "platform/controls/CWGraph.h"
#include "tests/ui/acquisition/ViewRig.h"

namespace tarnlog::test {
namespace {

/// Keys go to whatever has the focus, as a hand's do.
void press(int key, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* const popup = QApplication::activePopupWidget();
  QTest::keyClick(popup == nullptr ? QApplication::focusWidget() : popup, Qt::Key(key), modifiers);
}

std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }

void tabTo(const std::string& name) {
  for (int i = 0; i < 30 && focused() != name; ++i) press(Qt::Key_Tab);
  EXPECT_EQ(focused(), name);
}

/// With the arrows, from the menu of what has the focus.
void chooseFromMenu(const QString& entry) {
  press(Qt::Key_F10, Qt::ShiftModifier);
  auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr) << entry.toStdString();
  const auto isAt = [&] {
    return menu->activeAction() != nullptr && menu->activeAction()->text().remove('&').startsWith(entry);
  };
  for (int i = 0; i < 30 && !isAt(); ++i) press(Qt::Key_Down);
  EXPECT_TRUE(isAt()) << entry.toStdString();
  press(Qt::Key_Return);
}

TEST(AcqView, IsUsedByKeyboardAloneFromThePauseToTheSizeOfTexts) {
  ViewRig rig;
  rig.start();
  QApplication::processEvents();
  for (int i = 1; rig.acq.cycles() < 400; ++i) {
    rig.speed.setValue(static_cast<double>(i % 200));
    rig.tick(50);
  }
  EXPECT_EQ(focused(), "CommandStartStop");

  press(Qt::Key_G);
  const auto& graph = rig.child<CWGraph>("GT1");
  const auto view = [&] { return graph.view(); };
  const TimeView now = view();
  press(Qt::Key_F);
  EXPECT_EQ(view(), now) << "only a paused picture can be moved";
  press(Qt::Key_P);
  EXPECT_TRUE(rig.child("LblPaused").isVisible());
  press(Qt::Key_F);
  EXPECT_EQ(view().count, 400);
  press(Qt::Key_Plus);
  EXPECT_NEAR(view().count, 320, 1);
  const double first = view().first;
  press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_NEAR(view().first, first - 32, 1);
  press(Qt::Key_Minus);
  EXPECT_EQ(view().count, 400);

  const QWidget& box = rig.child("CursorBox");
  tabTo("GT1");
  press(Qt::Key_Home);
  chooseFromMenu("Cursor A");
  EXPECT_EQ(graph.cursor(CWGraph::CursorA), 0) << "where the readout stood";
  tabTo("GT1");
  press(Qt::Key_End);
  press(Qt::Key_B);
  EXPECT_TRUE(box.isVisible());
  EXPECT_TRUE(box.accessibleName().startsWith("A to B: 19.95 s\n")) << box.accessibleName().toStdString();
  press(Qt::Key_F11);
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  EXPECT_FALSE(box.isVisible()) << "first the readout goes, then the cursors";
  EXPECT_TRUE(rig.view.isFullScreen());
  press(Qt::Key_Escape);
  EXPECT_FALSE(rig.view.isFullScreen()) << "last the full screen";
  press(Qt::Key_Plus);
  chooseFromMenu("Fit all");
  EXPECT_EQ(view().count, 400);
  rig.tick(50);
  press(Qt::Key_P);
  EXPECT_FALSE(rig.child("LblPaused").isVisible());
  EXPECT_EQ(view().count, now.count);
  EXPECT_EQ(view().last(), 401) << "with what came meanwhile";

  const auto& list = rig.child<QTreeView>("LVvisuText");
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(focused(), "ListFilter");
  press(Qt::Key_Escape);
  EXPECT_EQ(focused(), "LVvisuText");

  chooseFromMenu("Maximum");
  rig.tick(50);
  EXPECT_EQ(list.model()->index(0, 3).data(), "199");
  tabTo("CommandStartStop");
  const qreal usual = list.font().pointSizeF();
  const int usualRow = list.visualRect(list.model()->index(0, 0)).height();
  for (int i = 0; i < 30; ++i) press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(list.font().pointSizeF(), 4 * usual, 0.1);
  EXPECT_GT(list.visualRect(list.model()->index(0, 0)).height(), 3 * usualRow);
  EXPECT_EQ(rig.child("log").font().pointSizeF(), usual);
  for (int i = 0; i < 30; ++i) press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_NEAR(list.font().pointSizeF(), usual / 2, 0.1);
  press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(list.font().pointSizeF(), usual);
  EXPECT_FALSE(rig.acq.startPending());
  EXPECT_EQ(rig.filesWith("/rec/"), 0) << "nothing of this was for the recorder";
}

}  // namespace
}  // namespace tarnlog::test
