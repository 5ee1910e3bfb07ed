#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>
#include <memory>

#include "platform/controls/CWNumEdit.h"
#include "tests/config/ScopeList.h"
#include "ui/scope/TarnPaSc.h"

namespace tarnlog {
namespace {

using test::ScopeList;

constexpr auto kTestFailure = QAbstractItemModelTester::FailureReportingMode::Fatal;

class ScopeScreen : public testing::Test {
 protected:
  void open(const std::string& items) {
    list_ = std::make_shared<ScopeList>(items);
    for (oTarnScope& scope : *list_) scope.DataName = "data " + scope.DataKey;
    screen_.resize(1000, 500);
    screen_.setParameters(list_);
    screen_.show();
    QApplication::setActiveWindow(&screen_);
    view_ = child<QTreeView>("ListViewScope");
    tester_ = std::make_unique<QAbstractItemModelTester>(view_->model(), kTestFailure);
  }

  template <class Widget>
  Widget* child(const char* name) {
    auto* const found = screen_.findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  oTarnScope& at(std::size_t position) const { return *list_->Item(position); }
  void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QRect cell = view_->visualRect(view_->model()->index(row, 0));
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, modifiers, cell.center());
  }
  std::string cell(int row, int column, int role = Qt::DisplayRole) const {
    return view_->model()->index(row, column).data(role).toString().toStdString();
  }
  void chooseType(const char* name) { child<QComboBox>("ScopeType")->setCurrentText(name); }
  bool shown(const char* name) { return child<QWidget>(name)->isVisible(); }

  std::shared_ptr<ScopeList> list_;
  TarnPaSc screen_;
  QTreeView* view_ = nullptr;
  std::unique_ptr<QAbstractItemModelTester> tester_;
  QSignalSpy edited_{&screen_, &TarnPaSc::edited};
};

TEST_F(ScopeScreen, RowsSayHowDataAreShown) {
  open("a:G b:I1 c:X1 d:N");
  at(1).RequestName = "R";
  screen_.setParameters(list_);
  EXPECT_EQ(cell(0, 0, Qt::ToolTipRole), "data a [R]");
  EXPECT_EQ(cell(0, 3), "Graph");
  EXPECT_EQ(cell(1, 3), "Graph (data a)");
  EXPECT_EQ(cell(2, 3), "X Axis Graph(data a)");
  EXPECT_EQ(cell(3, 3), "None");
  EXPECT_EQ(view_->model()->index(1, 3).data(Qt::ForegroundRole).value<QColor>(), QColor(0, 255, 0));
}

TEST_F(ScopeScreen, ShowingItemsWritesNothingBack) {
  open("a:G b:D");
  at(1).SetGraph("", false, 1e-9, 4e18, 500, 0);
  click(1);
  click(0);
  for (const char* const name : {"ScopeType", "CBgraphIndex", "AxeYmini", "AxeYmaxi", "AxeXNbPoints"}) {
    QWheelEvent inPassing({3, 3}, child<QWidget>(name)->mapToGlobal(QPointF(3, 3)), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
    QApplication::sendEvent(child<QWidget>(name), &inPassing);
    EXPECT_EQ(child<QWidget>(name)->focusPolicy(), Qt::StrongFocus);
  }
  EXPECT_EQ(edited_.count(), 0);
  EXPECT_EQ(at(1).oTarnGraph()->AxeYmini, 1e-9);
  child<CWNumEdit>("AxeYmaxi")->setValue(3);
  EXPECT_EQ(at(1).oTarnGraph()->AxeYmini, 1e-9);
  EXPECT_EQ(at(1).oTarnGraph()->AxeYmaxi, 3);
  EXPECT_EQ(edited_.count(), 1);
}

TEST_F(ScopeScreen, EditorsFollowTheType) {
  open("a:G b:D");
  click(1);
  EXPECT_EQ(child<QLabel>("LbData")->text(), "data b");
  EXPECT_TRUE(shown("ValScopeCaption"));
  EXPECT_FALSE(shown("FrAxeY") || shown("FrAxeX") || shown("FrColor") || shown("CBgraphIndex"));
  chooseType("BarGraph");
  EXPECT_TRUE(shown("AxeYmini") && shown("FrColor"));
  EXPECT_TRUE(child<QWidget>("AxeYmini")->isEnabled());
  EXPECT_FALSE(shown("AxeYAuto") || shown("FrAxeX") || shown("CBgraphIndex"));
  chooseType("Graph");
  EXPECT_TRUE(shown("AxeYAuto") && shown("AxeXNbPoints"));
  child<QCheckBox>("AxeYAuto")->setChecked(true);
  EXPECT_FALSE(child<QWidget>("AxeYmini")->isEnabled());
  chooseType("GraphIndex");
  EXPECT_TRUE(shown("CBgraphIndex") && shown("FrColor"));
  EXPECT_FALSE(shown("FrAxeY") || shown("FrAxeX"));
  chooseType("GraphAxeX");
  EXPECT_TRUE(shown("CBgraphIndex") && shown("AxeYAuto"));
  EXPECT_FALSE(shown("FrColor"));
  EXPECT_EQ(child<QGroupBox>("FrAxeY")->title(), "X Axis");
  chooseType("None");
  EXPECT_FALSE(shown("FrTypeGraph"));
  EXPECT_EQ(list_->text(), "a:G b:N");
  click(0);
  EXPECT_EQ(child<QComboBox>("ScopeType")->count(), 4);
  EXPECT_THAT(child<QComboBox>("ScopeType")->toolTip().toStdString(), testing::HasSubstr("need a graph"));
}

// A list that is filled again at each keystroke would take the cursor to the end of the caption.
TEST_F(ScopeScreen, TypingACaptionDisturbsNothing) {
  open("a:G b:D");
  auto* const caption = child<QLineEdit>("ValScopeCaption");
  QSignalSpy reset(view_->model(), &QAbstractItemModel::modelReset);
  caption->setFocus();
  QTest::keyClicks(caption, "ac");
  QTest::keyClick(caption, Qt::Key_Left);
  QTest::keyClicks(caption, "b");
  EXPECT_EQ(at(1).oTarnGraph()->Caption, "abc");
  EXPECT_EQ(caption->cursorPosition(), 2);
  EXPECT_TRUE(caption->hasFocus());
  EXPECT_EQ(reset.count(), 0);
  EXPECT_EQ(edited_.count(), 3);
}

TEST_F(ScopeScreen, TheColourComesFromTheDialog) {
  open("a:G b:I1");
  std::optional<QColor> answer;
  QColor offered;
  screen_.setAskColour([&](QWidget*, const QColor& initial, const auto& chosen) {
    offered = initial;
    if (answer) chosen(*answer);
  });
  auto* const box = child<QWidget>("ValScopeColor");
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_EQ(offered, QColor(0, 0, 255));
  EXPECT_EQ(edited_.count(), 0);
  answer = QColor(255, 128, 0);
  QTest::keyClick(box, Qt::Key_Space);
  EXPECT_EQ(at(1).oTarnGraph()->Color, 0x0080FF);
  EXPECT_EQ(view_->model()->index(0, 3).data(Qt::ForegroundRole).value<QColor>(), *answer);
  EXPECT_EQ(edited_.count(), 1);
}

TEST_F(ScopeScreen, ArrowsMoveTheItemAndWithCtrlTheCursor) {
  open("a:D b:D c:D");
  QTest::keyClick(view_, Qt::Key_Down);
  EXPECT_EQ(list_->text(), "b:D a:D c:D");
  EXPECT_EQ(view_->currentIndex().row(), 1);
  QTest::keyClick(view_, Qt::Key_Down, Qt::ControlModifier);
  QTest::mouseClick(child<QToolButton>("dataUp"), Qt::LeftButton);
  EXPECT_EQ(list_->text(), "b:D c:D a:D");
  QTest::keyClick(view_, Qt::Key_Up, Qt::KeypadModifier);
  QTest::keyClick(view_, Qt::Key_Up);
  EXPECT_EQ(list_->text(), "c:D b:D a:D");
  EXPECT_EQ(edited_.count(), 3);
}

TEST_F(ScopeScreen, TheMenuActsOnAllSelectedRows) {
  open("a:D b:D c:D d:D");
  click(0);
  click(1, Qt::ControlModifier);
  click(3, Qt::ControlModifier);
  QTest::keyClick(view_, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(shown("MenuPopup"));
  child<QMenu>("MenuPopup")->close();
  child<QAction>("MenuPopupXY")->trigger();
  EXPECT_EQ(list_->text(), "a:G b:I1 c:D d:X1");
  EXPECT_EQ(view_->selectionModel()->selectedRows().size(), 3);
  EXPECT_EQ(child<QComboBox>("ScopeType")->currentText(), "GraphAxeX");
  EXPECT_EQ(edited_.count(), 1);
}

TEST_F(ScopeScreen, ShowsWhatOtherScreensDidOnceItIsTold) {
  open("a:D b:D c:D");
  click(2);
  list_->RemoveAll();
  screen_.grab();
  QTest::keyClick(view_, Qt::Key_Up);
  chooseType("Digital");
  screen_.setParameters(list_);
  EXPECT_EQ(view_->model()->rowCount(), 0);
  EXPECT_FALSE(child<QWidget>("FrScope")->isEnabled());
  screen_.setParameters(std::make_shared<ScopeList>("c:G b:D"));
  EXPECT_EQ(view_->currentIndex().row(), 0);
  EXPECT_EQ(child<QComboBox>("ScopeType")->currentText(), "Graph");
  screen_.setParameters(nullptr);
  EXPECT_EQ(view_->model()->rowCount(), 0);
  EXPECT_EQ(edited_.count(), 0);
}

TEST_F(ScopeScreen, TheListTakesWhatTheEditorsLeave) {
  open("a:D b:D");
  auto* const frame = child<QWidget>("FrScope");
  const int frameWidth = frame->width();
  for (const int width : {1000, 700}) {
    screen_.resize(width, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(frame->width(), frameWidth);
    const QMargins margins = screen_.layout()->contentsMargins();
    EXPECT_GT(margins.left(), 0);
    EXPECT_EQ(view_->x(), margins.left());
    EXPECT_EQ(frame->x(), view_->x() + view_->width() + screen_.layout()->spacing());
    EXPECT_EQ(frame->x() + frameWidth, width - margins.right());
    EXPECT_EQ(view_->columnWidth(0), view_->width() * 30 / 100);
    EXPECT_EQ(view_->columnWidth(2), view_->width() * 20 / 100);
    EXPECT_EQ(view_->columnWidth(3), view_->width() * 20 / 100 - 4);
    const auto* const up = child<QToolButton>("dataUp");
    EXPECT_EQ(up->x(), frame->x());
    EXPECT_EQ(child<QToolButton>("dataDown")->x(), frame->x() + up->width() + 10);
  }
}

}  // namespace
}  // namespace tarnlog
