#include <gtest/gtest.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include "tests/ui/init/InitFixture.h"
#include "ui/init/TarnInit.h"

using namespace tarnlog;

namespace {

class TarnInitTest : public testing::Test, protected test::InitFixture {
 protected:
  TarnInitTest() {
    screen.setSession(&session);
    screen.setParameters(parameters);
    screen.resize(900, 600);
    screen.show();
    QApplication::setActiveWindow(&screen);
  }

  template <class T>
  T& control(const char* name) {
    T* const found = screen.findChild<T*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  QTreeWidget& tree() { return control<QTreeWidget>("tvRequests"); }
  QTreeWidget& list() { return control<QTreeWidget>("lvInitScenario"); }
  void click(const char* button) { QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton); }

  void doubleClick(QTreeWidgetItem* item) {
    tree().scrollToItem(item);
    const QPoint place = tree().visualItemRect(item).center();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, place);
  }
  QTreeWidgetItem* request(int ecu, int position) { return tree().topLevelItem(ecu)->child(position); }

  std::string selected() {
    std::string rows;
    for (int i = 0; i < list().topLevelItemCount(); ++i)
      if (list().topLevelItem(i)->isSelected()) rows += std::to_string(i + 1);
    return rows;
  }

  TarnInit screen;
  QSignalSpy edited{&screen, &TarnInit::edited};
};

TEST_F(TarnInitTest, RequestsAreAddedMovedAndRemoved) {
  doubleClick(request(0, 1));
  EXPECT_EQ(selected(), "1");
  doubleClick(tree().topLevelItem(1));
  tree().topLevelItem(1)->setExpanded(true);
  doubleClick(request(1, 1));
  tree().setCurrentItem(request(0, 0));
  click("addData");
  QTest::keyClick(&tree(), Qt::Key_Return);
  EXPECT_EQ(scenario(), "Engine/Reset Brakes/Bleed Engine/Status Engine/Status");
  EXPECT_EQ(list().topLevelItem(1)->text(0), "Brakes");
  EXPECT_EQ(list().topLevelItem(1)->text(1), "Bleed");

  list().setFocus();
  list().clearSelection();
  list().topLevelItem(1)->setSelected(true);
  list().topLevelItem(2)->setSelected(true);
  QTest::keyClick(&list(), Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(scenario(), "Brakes/Bleed Engine/Status Engine/Reset Engine/Status");
  EXPECT_EQ(selected(), "12");
  QTest::keyClick(&list(), Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(selected(), "12") << "the first row is among them: nothing moves";
  click("dataDown");
  EXPECT_EQ(scenario(), "Engine/Reset Brakes/Bleed Engine/Status Engine/Status");
  EXPECT_EQ(selected(), "23");
  list().setFocus();
  QTest::keyClick(&list(), Qt::Key_Delete);
  EXPECT_EQ(scenario(), "Engine/Reset Engine/Status");
  EXPECT_EQ(edited.count(), 7);
}

TEST_F(TarnInitTest, RefusesAnAddressThatDoesNotFitWithAMessageInPlace) {
  tree().setCurrentItem(request(3, 0));
  click("addData");
  auto& notice = *screen.findChild<Notice*>();
  EXPECT_TRUE(notice.isVisible());
  EXPECT_TRUE(notice.text().startsWith("Farther has the address"));
  EXPECT_EQ(edited.count(), 0);
  tree().setCurrentItem(request(2, 0));
  click("addData");
  EXPECT_FALSE(notice.isVisible());
  EXPECT_EQ(scenario(), "Far/Close");
}

TEST_F(TarnInitTest, TheStartSessionIsKeptAsTypedAndCompletedWhenLeft) {
  auto& box = control<QLineEdit>("TxStartSession");
  box.setFocus();
  QTest::keyClicks(&box, "10G");
  EXPECT_EQ(parameters->startSession, "10G");
  EXPECT_FALSE(box.toolTip().isEmpty());
  QTest::keyClick(&box, Qt::Key_Backspace);
  QTest::keyClicks(&box, "A ");
  EXPECT_TRUE(box.toolTip().isEmpty());
  EXPECT_EQ(parameters->startSession, "10A ");
  tree().setFocus();
  EXPECT_EQ(parameters->startSession, "010A");
  EXPECT_EQ(box.text(), "010A");
  box.setText("10C0");  // as assistive tools do
  EXPECT_EQ(parameters->startSession, "10C0");
}

TEST_F(TarnInitTest, ShowsWhatTheNextConfigurationHolds) {
  request(1, 0)->setSelected(true);
  const auto next = std::make_shared<oTarnParameters>(settings);
  next->startSession = "10C0";
  next->initScenario->Add("Reset", "Engine", 16);
  screen.setParameters(next);
  EXPECT_EQ(control<QLineEdit>("TxStartSession").text(), "10C0");
  EXPECT_EQ(list().topLevelItemCount(), 1);
  EXPECT_EQ(selected(), "1");
  EXPECT_TRUE(request(1, 0)->isSelected()) << "the same vehicle: the tree stays as it is";
  // Without a session the rows stay, but they are none of the next configuration's.
  screen.setSession(nullptr);
  screen.setParameters(parameters);
  parameters->initScenario->Add("Bleed", "Brakes", 17);
  EXPECT_EQ(selected(), "1");
  list().setFocus();
  QTest::keyClick(&list(), Qt::Key_Delete);
  QTest::keyClick(&list(), Qt::Key_Down, Qt::ControlModifier);
  doubleClick(request(0, 1));
  EXPECT_FALSE(control<QPushButton>("removeData").isEnabled());
  EXPECT_EQ(scenario(), "Brakes/Bleed");
  screen.setParameters(nullptr);
  EXPECT_EQ(tree().topLevelItemCount(), 0);
  EXPECT_EQ(edited.count(), 0);
}

}  // namespace
