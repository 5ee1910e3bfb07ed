#include "ui/scope/TarnPaSc.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>
#include <tuple>

#include "platform/controls/CWNumEdit.h"
#include "platform/controls/Readable.h"
#include "tests/config/ScopeList.h"
#include "tests/support/Gestures.h"
#include "tests/support/SmallVehicle.h"
#include "tests/support/WidgetText.h"
#include "ui/common/Convert.h"
#include "ui/scope/ScopeOffers.h"

namespace tarnlog::test {
namespace {

/// The screen's rules over a configuration written as text.
struct Rules {
  explicit Rules(const std::string& items) : list(std::make_shared<ScopeList>(items)) {
    editor.setParameters(list);
  }

  oTarnScope& at(std::size_t position) const { return *list->Item(position); }
  Rules& show(std::size_t position) {
    editor.show(position);
    return *this;
  }
  /// Of the current item.
  std::string graphs() const {
    std::string keys;
    for (const oTarnScope* const graph : editor.graphs()) keys += graph->DataKey;
    return keys;
  }
  /// The items after a choice of another type for the current one: a letter of `kScopeLetters`.
  std::string as(char type) {
    editor.chooseType(static_cast<DisplayKind>(std::string(kScopeLetters).find(type)));
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
  Rules screen("a:D b:G c:N d:D");
  screen.at(4).varType = ferrox3::kString;
  const auto types = [&](std::size_t position) {
    std::string letters;
    for (const DisplayKind type : offeredTypes(*screen.list, screen.at(position)).types)
      letters += kScopeLetters[static_cast<std::size_t>(type)];
    return letters;
  };
  EXPECT_EQ(types(1) + " " + types(2) + " " + types(3) + " " + types(4), "NDBG NDBG NDBGIX ND");
  EXPECT_EQ(screen.show(1).as('I'), "a:D b:G c:N d:D");
  EXPECT_EQ(screen.show(4).as('G'), "a:D b:G c:N d:D");
}

TEST(ScopeEditor, ChangingTheTypeTakesWhatTheEditorsHold) {
  Rules screen("a:G b:N");
  screen.at(1).SetGraph("speed", false, -5, 250, 800, 0x40FF00);
  screen.show(1).as('B');
  const oTarnSlide& bar = *screen.at(1).oTarnSlide();
  EXPECT_EQ(std::tuple(bar.Caption, bar.mini, bar.maxi, bar.Color), std::tuple("speed", -5, 250, 0x40FF00));
  screen.as('N');
  screen.as('D');
  EXPECT_EQ(screen.at(1).oTarnNumeric()->Caption, "speed");
  const auto graphOf = [&](std::size_t position) {
    screen.as('G');
    const oTarnGraph& graph = *screen.at(position).oTarnGraph();
    return std::tuple(graph.Caption, graph.AxeYAuto, graph.AxeYmaxi, graph.points, graph.Color);
  };
  EXPECT_EQ(graphOf(1), std::tuple("speed", false, 250, 800, 0x40FF00));
  screen.show(2);
  EXPECT_EQ(graphOf(2), std::tuple("", true, 100, 500, kScopePalette[1])) << "nothing of the item before";
  screen.editor.changePoints(42);
  EXPECT_EQ(screen.at(2).oTarnGraph()->points, 42);
  screen.as('X');
  EXPECT_TRUE(screen.editor.parts().axisIsX);
  screen.editor.changeMini(-3);
  EXPECT_EQ(screen.at(2).oTarnGraphAxeX()->axeXmini, -3);
  EXPECT_FALSE(screen.editor.changeColour(1));
}

TEST(ScopeEditor, PositionsAmongGraphsSkipThoseWithAnotherXAxis) {
  Rules screen("a:G b:D c:G d:X1 e:G f:N g:X3");
  EXPECT_EQ(screen.show(6).as('X'), "a:G b:D c:G d:X1 e:G f:X5 g:X3");
  EXPECT_EQ(screen.graphs(), "e");
  EXPECT_EQ(screen.as('I'), "a:G b:D c:G d:X1 e:G f:I5 g:X3");
  EXPECT_EQ(screen.graphs(), "ace");
  EXPECT_EQ(screen.editor.chosenGraph(), 2U);
  EXPECT_TRUE(screen.editor.chooseGraph(1));
  EXPECT_EQ(screen.list->text(), "a:G b:D c:G d:X1 e:G f:I3 g:X3");
  EXPECT_EQ(screen.show(4).graphs(), "a");  // its own; the next ones stand behind it
  screen.show(7);
  EXPECT_EQ(screen.graphs(), "ce");
  EXPECT_TRUE(screen.editor.chooseGraph(1));
  EXPECT_EQ(screen.list->text(), "a:G b:D c:G d:X1 e:G f:I3 g:X5");

  EXPECT_EQ(Rules("a:G b:X1 c:D").show(3).as('X'), "a:G b:X1 c:D") << "the axis is taken";
}

TEST(ScopeAction, ChangesTheSelectedItemsOnly) {
  EXPECT_EQ(Rules("a:D b:N c:D d:D").apply(ScopeAction::XY, {1, 3, 4}), "a:G b:N c:I1 d:X1");
  EXPECT_EQ(Rules("a:D b:D").apply(ScopeAction::XY, {1}), "a:G b:D");
  EXPECT_EQ(Rules("a:G b:I1 c:D").apply(ScopeAction::None, {1, 3}), "a:N b:G c:N");
  EXPECT_EQ(Rules("a:G b:I1 c:X1 d:G").apply(ScopeAction::Numeric, {1}), "a:D b:G c:G d:G");
  EXPECT_EQ(Rules("a:D b:I1 c:D").apply(ScopeAction::BarGraph, {1, 3}), "a:B b:G c:B");
  EXPECT_EQ(Rules("a:D b:D c:D").apply(ScopeAction::Graph, {1, 3}), "a:G b:D c:G");
  Rules texts("a:D b:D c:D");
  texts.at(1).varType = ferrox3::kString;
  EXPECT_EQ(texts.apply(ScopeAction::Single, {1, 2, 3}), "a:D b:G c:G");

  Rules all("a:D b:D c:D d:D e:D f:D g:D h:D i:D j:D");
  EXPECT_EQ(all.apply(ScopeAction::Single, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}),
            "a:G b:I1 c:I1 d:I1 e:I1 f:I1 g:I1 h:I1 i:I1 j:I1");
  EXPECT_EQ(all.at(1).oTarnGraph()->Color, 0xFF0000);
  EXPECT_EQ(all.at(2).oTarnGraphIndex()->Color, 0x0000FF);
  EXPECT_EQ(all.at(8).oTarnGraphIndex()->Color, 0x000000);
  EXPECT_EQ(all.at(9).oTarnGraphIndex()->Color, 0xFF0000) << "round the palette";

  Rules unified("a:G b:D c:G d:I1 e:G");
  unified.at(1).ChangeAxeXNbPoints(10);
  unified.at(3).ChangeAxeXNbPoints(30);
  EXPECT_EQ(unified.apply(ScopeAction::Unify, {2, 3, 4, 5}), "a:G b:D c:G d:I1 e:G");
  EXPECT_EQ(unified.at(1).oTarnGraph()->points, 10);
  EXPECT_EQ(unified.at(5).oTarnGraph()->points, 30);
  EXPECT_FALSE(unified.editor.apply(ScopeAction::Unify, {1})) << "with one graph nothing changes";
}

// --- the screen

struct ScopeScreen : testing::Test {
  void open(const std::string& items) {
    list_ = std::make_shared<ScopeList>(items);
    for (oTarnScope& scope : *list_) {
      scope.DataName = "data " + scope.DataKey;
      scope.RequestName = "R";
    }
    screen_.resize(1000, 500);
    screen_.setParameters(list_);
    screen_.show();
    QApplication::setActiveWindow(&screen_);
    view_ = child<QTreeView>("ListViewScope");
    tester_ = std::make_unique<QAbstractItemModelTester>(
        view_->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  }

  template <class Widget>
  Widget* child(const char* name) const {
    return &childOf<Widget>(screen_, name);
  }
  oTarnScope& at(std::size_t position) const { return *list_->Item(position); }
  void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QRect cell = view_->visualRect(view_->model()->index(row, 0));
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, modifiers, cell.center());
  }
  std::string rows(const std::vector<int>& columns) const { return itemsText(*view_, columns); }
  void openMenu() {
    QTest::keyClick(view_, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(child<QMenu>("MenuPopup")->isVisible());
    child<QMenu>("MenuPopup")->close();
  }
  /// What the menu offers for all rows.
  std::string offered() {
    view_->selectAll();
    openMenu();
    std::string names;
    for (const QAction* const action : child<QMenu>("MenuPopup")->actions())
      if (action->isEnabled() && !action->isSeparator())
        names += action->objectName().mid(int(qstrlen("MenuPopup"))).toStdString() + " ";
    return names;
  }
  void choose(const std::string& entry) { child<QAction>(("MenuPopup" + entry).c_str())->trigger(); }
  void chooseType(const char* name) { child<QComboBox>("ScopeType")->setCurrentText(name); }
  /// Which editors are there.
  std::string shown() const {
    std::string names;
    for (const char* const name :
         {"ValScopeCaption", "CBgraphIndex", "AxeYAuto", "AxeYmini", "AxeXNbPoints", "ValScopeColor"})
      if (child<QWidget>(name)->isVisible()) names += std::string(names.empty() ? "" : " ") + name;
    return names;
  }

  std::shared_ptr<ScopeList> list_;
  TarnPaSc screen_;
  QTreeView* view_ = nullptr;
  std::unique_ptr<QAbstractItemModelTester> tester_;
  QSignalSpy edited_{&screen_, &TarnPaSc::edited};
};

TEST_F(ScopeScreen, WritesWhatTheUserChangesAndNothingElse) {
  open("a:G b:D");
  at(1).SetGraph("", false, 1e-9, 4e18, 500, 0xFF0000);
  click(1);
  click(0);
  for (const char* const name : {"ScopeType", "CBgraphIndex", "AxeYmini", "AxeYmaxi", "AxeXNbPoints"}) {
    auto* const editor = child<QWidget>(name);
    turnWheel(*editor);
    EXPECT_EQ(editor->focusPolicy(), Qt::StrongFocus);
  }
  EXPECT_EQ(edited_.count(), 0);
  const oTarnGraph& graph = *at(1).oTarnGraph();
  child<CWNumEdit>("AxeYmaxi")->setValue(3);
  EXPECT_EQ(std::tuple(graph.AxeYmini, graph.AxeYmaxi), std::tuple(1e-9, 3));
  EXPECT_EQ(edited_.count(), 1);

  // A list that is filled again at each keystroke would take the cursor to the end of the caption.
  auto* const caption = child<QLineEdit>("ValScopeCaption");
  caption->setFocus();
  QTest::keyClicks(caption, "ac");
  QTest::keyClick(caption, Qt::Key_Left);
  QTest::keyClicks(caption, "b");
  EXPECT_EQ(graph.Caption, "abc");
  EXPECT_EQ(caption->cursorPosition(), 2);
  EXPECT_TRUE(caption->hasFocus());
  EXPECT_EQ(edited_.count(), 4);

  std::optional<QColor> answer;
  QColor offered;
  screen_.setAskColour([&](QWidget*, const QColor& initial, const auto& chosen) {
    offered = initial;
    if (answer) chosen(*answer);
  });
  auto* const box = child<QWidget>("ValScopeColor");
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_EQ(offered, QColor(0, 0, 255));
  EXPECT_EQ(edited_.count(), 4);
  answer = QColor(255, 128, 0);
  QTest::keyClick(box, Qt::Key_Space);
  EXPECT_EQ(graph.Color, 0x0080FF);
  EXPECT_EQ(view_->model()->index(0, 3).data(Qt::ForegroundRole).value<QColor>(), *answer);
  EXPECT_EQ(edited_.count(), 5);
}

TEST_F(ScopeScreen, EditorsFollowTheType) {
  open("a:G b:D");
  click(1);
  EXPECT_EQ(child<QLabel>("LbData")->text(), "data b");
  EXPECT_EQ(view_->model()->index(1, 0).data(Qt::ToolTipRole).toString(), "data b [R]");
  EXPECT_EQ(shown(), "ValScopeCaption");
  chooseType("BarGraph");
  EXPECT_EQ(shown(), "ValScopeCaption AxeYmini ValScopeColor");
  EXPECT_TRUE(child<QWidget>("AxeYmini")->isEnabled());
  chooseType("Graph");
  EXPECT_EQ(shown(), "ValScopeCaption AxeYAuto AxeYmini AxeXNbPoints ValScopeColor");
  child<QCheckBox>("AxeYAuto")->setChecked(true);
  EXPECT_FALSE(child<QWidget>("AxeYmini")->isEnabled());
  chooseType("GraphIndex");
  EXPECT_EQ(shown(), "ValScopeCaption CBgraphIndex ValScopeColor");
  chooseType("GraphAxeX");
  EXPECT_EQ(shown(), "ValScopeCaption CBgraphIndex AxeYAuto AxeYmini");
  EXPECT_EQ(child<QGroupBox>("FrAxeY")->title(), "X Axis");
  chooseType("None");
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(rows({3}), "Graph *None");
  click(0);
  const auto* const types = child<QComboBox>("ScopeType");
  EXPECT_EQ(types->count(), 4);
  EXPECT_TRUE(types->toolTip().contains("need a graph"));
}

TEST_F(ScopeScreen, ArrowsMoveTheItemAndWithCtrlTheCursor) {
  open("a:D b:D c:D");
  QTest::keyClick(view_, Qt::Key_Down);
  EXPECT_EQ(rows({0}), "data b *data a data c");
  QTest::keyClick(view_, Qt::Key_Down, Qt::ControlModifier);
  child<QToolButton>("dataUp")->click();
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
  openMenu();
  choose("XY");
  EXPECT_EQ(rows({0, 3}), "*data a|Graph *data b|Graph (data a) data c|Digital *data d|X Axis Graph(data a)");
  EXPECT_EQ(child<QComboBox>("ScopeType")->currentText(), "GraphAxeX");
  EXPECT_EQ(edited_.count(), 1);

  open("a:N b:N");
  at(1).varType = at(2).varType = ferrox3::kString;
  EXPECT_EQ(offered(), "None Numeric ");
  at(2).SetNumeric("");
  EXPECT_EQ(offered(), "None Numeric EmptyCaption ");
}

TEST_F(ScopeScreen, TheMenuChangesTheSettingsOfAllSelectedRows) {
  open("a:G b:D c:I1 d:B e:G f:X5");
  for (oTarnScope& scope : *list_) scope.ChangeCaption("own");
  oTarnGraph& first = *at(1).oTarnGraph();
  at(5).SetGraph("own", true, -40, 215, 100, 7);
  oTarnGraph& second = *at(5).oTarnGraph();
  EXPECT_NE(offered(), "");
  choose("Colours");
  EXPECT_EQ(std::tuple(first.Color, at(3).oTarnGraphIndex()->Color, second.Color),
            std::tuple(kDistinctColours[0], kDistinctColours[1], kDistinctColours[2]));
  EXPECT_EQ(at(4).oTarnSlide()->Color, 0xFF0000) << "a bar is no curve";
  choose("AutomaticOff");
  EXPECT_FALSE(first.AxeYAuto || second.AxeYAuto || at(6).oTarnGraphAxeX()->axeXAuto);
  EXPECT_EQ(std::tuple(second.AxeYmini, second.AxeYmaxi), std::tuple(-40, 215));
  EXPECT_FALSE(child<QCheckBox>("AxeYAuto")->isChecked()) << "the editors follow";
  choose("AutomaticOn");
  EXPECT_TRUE(first.AxeYAuto && second.AxeYAuto);
  choose("EmptyCaption");
  EXPECT_EQ(first.Caption + at(2).oTarnNumeric()->Caption + at(4).oTarnSlide()->Caption, "");
  EXPECT_EQ(edited_.count(), 4);

  choose("Points");
  auto* const dialog = screen_.findChild<QInputDialog*>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->intValue(), oTarnGraph::kDefaultPoints);
  dialog->setIntValue(120);
  dialog->accept();
  EXPECT_EQ(std::tuple(first.points, second.points), std::tuple(120, 120));
  EXPECT_EQ(list_->text(), "a:G b:D c:I1 d:B e:G f:X5");
}

/// On a light and on a dark desktop, and each from each other.
TEST(ScopeColours, AreToldApart) {
  std::vector<QColor> colours;
  for (const std::int32_t colour : kDistinctColours)
    colours.push_back(toQColor(static_cast<Colour>(colour), {}));
  for (const QColor& colour : colours) {
    SCOPED_TRACE(colour.name().toStdString());
    EXPECT_GE(contrastOf(colour, Qt::white), 3);
    EXPECT_GE(contrastOf(colour, QColor(0x2D, 0x2D, 0x2D)), 3);
    for (const QColor& other : colours) {
      const int apart = std::abs(colour.hue() - other.hue());
      EXPECT_TRUE(&other == &colour || std::min(apart, 360 - apart) > 8) << other.name().toStdString();
    }
  }
}

TEST_F(ScopeScreen, TheEditorOffersTheRangeOfTheDatum) {
  SmallVehicle vehicle;
  open("a:B b:B");
  for (oTarnScope& scope : *list_) {
    scope.EcuName = "Engine";
    scope.RequestName = "Status";
  }
  at(1).DataName = "Speed";
  click(0);
  auto& button = *child<QAbstractButton>("AxeYRange");
  EXPECT_FALSE(button.isEnabled()) << "there is no vehicle";
  screen_.setXmlSession(std::make_shared<SessionDocument>(std::move(vehicle.catalogue)));
  EXPECT_TRUE(button.isEnabled());
  EXPECT_EQ(button.toolTip(), "From 0 to 250");
  button.click();
  EXPECT_EQ(at(1).oTarnSlide()->maxi, 250);
  EXPECT_EQ(edited_.count(), 1);
  at(1).SetGraph("", true, 0, 100, 500, 0);
  screen_.setParameters(list_);
  EXPECT_FALSE(button.isEnabled()) << "the axis follows the values";
  click(1);
  EXPECT_FALSE(button.isEnabled()) << "the vehicle does not have it";
}

TEST_F(ScopeScreen, ShowsWhatOtherScreensDidOnceItIsTold) {
  open("a:D b:D c:D");
  click(1);
  list_->removeScope(2);
  screen_.grab();
  QTest::keyClick(view_, Qt::Key_Up);
  chooseType("Graph");
  screen_.setParameters(list_);
  EXPECT_EQ(rows({0, 3}), "*data a|Digital data c|Digital");
  click(1);
  screen_.setParameters(list_);
  EXPECT_EQ(rows({0}), "data a *data c") << "the current item stays";
  screen_.setParameters(std::make_shared<ScopeList>(""));
  EXPECT_EQ(rows({0}), "");
  EXPECT_FALSE(child<QWidget>("FrScope")->isEnabled());
  choose("XY");
  screen_.setParameters(std::make_shared<ScopeList>("c:G b:D"));
  EXPECT_EQ(rows({3}), "*Graph Digital");
  screen_.setParameters(nullptr);
  EXPECT_EQ(rows({0}), "");
  EXPECT_EQ(edited_.count(), 0);
}

TEST_F(ScopeScreen, TheListTakesWhatTheEditorsLeave) {
  open("a:D b:D");
  const int editors = child<QWidget>("FrScope")->width();
  for (const int width : {1000, 700}) {
    screen_.resize(width, 500);
    QCoreApplication::processEvents();
    const auto& frame = *child<QWidget>("FrScope");
    EXPECT_EQ(frame.width(), editors);
    EXPECT_EQ(frame.x() + editors, width - screen_.layout()->contentsMargins().right());
    EXPECT_EQ(view_->geometry().right() + 1, frame.x() - screen_.layout()->spacing());
    EXPECT_EQ(view_->columnWidth(0), view_->width() * 30 / 100);
    EXPECT_EQ(view_->columnWidth(3), view_->width() * 20 / 100 - 4);
  }
}

}  // namespace
}  // namespace tarnlog::test
