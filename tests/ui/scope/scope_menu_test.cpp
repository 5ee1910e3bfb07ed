#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QInputDialog>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "tests/config/ScopeList.h"
#include "tests/support/SmallVehicle.h"
#include "ui/common/Convert.h"
#include "ui/scope/TarnPaSc.h"

namespace tarnlog {
namespace {

using test::ScopeList;
using testing::ElementsAre;

/// The screen with all rows selected and the menu open.
class ScopeMenu : public testing::Test {
 protected:
  void open(const std::string& items) {
    list_ = std::make_shared<ScopeList>(items);
    screen_.resize(1000, 600);
    screen_.setParameters(list_);
    screen_.show();
    view_ = screen_.findChild<QTreeView*>("ListViewScope");
    view_->selectAll();
    openMenu();
  }
  void openMenu() {
    QTest::keyClick(view_, Qt::Key_Menu);
    screen_.findChild<QMenu*>("MenuPopup")->close();
  }
  QAction& entry(const char* name) { return *screen_.findChild<QAction*>(name); }
  std::string offered() {
    std::string names;
    for (const QAction* const action : screen_.findChild<QMenu*>("MenuPopup")->actions())
      if (action->isEnabled() && !action->isSeparator())
        names += action->objectName().mid(int(qstrlen("MenuPopup"))).toStdString() + " ";
    return names;
  }
  oTarnScope& at(std::size_t position) const { return *list_->Item(position); }

  std::shared_ptr<ScopeList> list_;
  TarnPaSc screen_;
  QTreeView* view_ = nullptr;
  QSignalSpy edited_{&screen_, &TarnPaSc::edited};
};

TEST_F(ScopeMenu, ChangesTheSettingsOfAllSelectedRows) {
  open("a:G b:D c:I1 d:B e:G f:X5");
  for (std::size_t position = 1; position <= 6; ++position) at(position).ChangeCaption("own");
  at(5).SetGraph("own", true, -40, 215, 100, 7);
  entry("MenuPopupColours").trigger();
  EXPECT_EQ(at(1).oTarnGraph()->Color, kDistinctColours[0]);
  EXPECT_EQ(at(3).oTarnGraphIndex()->Color, kDistinctColours[1]);
  EXPECT_EQ(at(5).oTarnGraph()->Color, kDistinctColours[2]);
  EXPECT_EQ(at(4).oTarnSlide()->Color, 0xFF0000) << "a bar is no curve";
  entry("MenuPopupAutomaticOff").trigger();
  EXPECT_FALSE(at(1).oTarnGraph()->AxeYAuto || at(5).oTarnGraph()->AxeYAuto ||
               at(6).oTarnGraphAxeX()->axeXAuto);
  EXPECT_EQ(at(5).oTarnGraph()->AxeYmini, -40);
  EXPECT_EQ(at(5).oTarnGraph()->AxeYmaxi, 215);
  EXPECT_FALSE(screen_.findChild<QCheckBox*>("AxeYAuto")->isChecked()) << "the editors follow";
  entry("MenuPopupAutomaticOn").trigger();
  EXPECT_TRUE(at(1).oTarnGraph()->AxeYAuto && at(5).oTarnGraph()->AxeYAuto);
  entry("MenuPopupEmptyCaption").trigger();
  EXPECT_EQ(at(1).oTarnGraph()->Caption + at(2).oTarnNumeric()->Caption + at(4).oTarnSlide()->Caption, "");
  EXPECT_EQ(edited_.count(), 4);

  entry("MenuPopupPoints").trigger();
  auto* const dialog = screen_.findChild<QInputDialog*>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->intValue(), oTarnGraph::kDefaultPoints);
  dialog->setIntValue(120);
  dialog->accept();
  EXPECT_EQ(at(1).oTarnGraph()->points, 120);
  EXPECT_EQ(at(5).oTarnGraph()->points, 120);
  EXPECT_EQ(list_->text(), "a:G b:D c:I1 d:B e:G f:X5");
}

TEST_F(ScopeMenu, OffersWhatTheSelectedRowsHave) {
  open("a:N b:N");
  at(1).varType = at(2).varType = ferrox3::kString;
  openMenu();
  EXPECT_EQ(offered(), "None Numeric ");
  at(2).SetNumeric("");
  openMenu();
  EXPECT_EQ(offered(), "None Numeric EmptyCaption ");
}

/// On a light and on a dark desktop, and each from each other.
TEST_F(ScopeMenu, ColoursAreToldApart) {
  const auto luminance = [](const QColor& colour) {
    const auto linear = [](double part) {
      return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  };
  std::vector<QColor> colours;
  colours.reserve(kDistinctColours.size());
  for (const std::int32_t colour : kDistinctColours)
    colours.push_back(toQColor(static_cast<Colour>(colour), {}));
  for (const QColor& colour : colours) {
    EXPECT_GE(1.05 / (luminance(colour) + 0.05), 3) << colour.name().toStdString();
    EXPECT_GE((luminance(colour) + 0.05) / (luminance(QColor(0x2D, 0x2D, 0x2D)) + 0.05), 3)
        << colour.name().toStdString();
    for (const QColor& other : colours)
      if (&other != &colour) {
        const int apart = std::abs(colour.hue() - other.hue());
        EXPECT_GT(std::min(apart, 360 - apart), 8)
            << colour.name().toStdString() << other.name().toStdString();
      }
  }
}

TEST_F(ScopeMenu, TheEditorOffersTheRangeOfTheDatum) {
  test::SmallVehicle vehicle;
  open("a:B b:B");
  for (std::size_t position : {1U, 2U}) {
    at(position).EcuName = "Engine";
    at(position).RequestName = "Status";
  }
  at(1).DataName = "Speed";
  at(2).DataName = "unknown";
  auto& button = *screen_.findChild<QPushButton*>("AxeYRange");
  EXPECT_FALSE(button.isEnabled()) << "there is no vehicle";
  screen_.setXmlSession(std::make_shared<SessionDocument>(BuildSessionDocument(vehicle.session)));
  EXPECT_TRUE(button.isEnabled());
  EXPECT_EQ(button.toolTip(), "From 0 to 250");
  button.click();
  EXPECT_EQ(at(1).oTarnSlide()->maxi, 250);
  EXPECT_EQ(edited_.count(), 1);
  at(1).SetGraph("", true, 0, 100, 500, 0);
  screen_.setParameters(list_);
  EXPECT_FALSE(button.isEnabled()) << "the axis follows the values";
  view_->setCurrentIndex(view_->model()->index(1, 0));
  EXPECT_FALSE(button.isEnabled()) << "the vehicle does not have it";
}

}  // namespace
}  // namespace tarnlog
