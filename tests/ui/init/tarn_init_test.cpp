#include "ui/init/TarnInit.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "tests/support/Gestures.h"
#include "tests/support/SmallVehicle.h"
#include "tests/support/WidgetText.h"
#include "ui/init/StartSessionText.h"

namespace tarnlog::test {
namespace {

/// The screen on the small vehicle, which has an ECU each that cannot be offered, or offered and not added.
struct TarnInitTest : testing::Test {
  TarnInitTest() {
    session.addEcu("Nowhere", "None", 0).addRequest("Ping");
    session.addEcu("Everybody", "Broadcast", 255).addRequest("Ping");
    session.addEcu("Far", "Far", 0x18DA).addRequest("Close");
    session.addEcu("Farther", "Farther", 0x18DAF110).addRequest("Too far");
    screen.setSession(&session);
    screen.setParameters(parameters);
    screen.resize(900, 600);
    screen.show();
    QApplication::setActiveWindow(&screen);
  }
  void open(QTreeWidgetItem* item) {
    tree.setCurrentItem(item);
    tree.scrollToItem(item);
    doubleClick(tree, tree.currentIndex());
  }
  QTreeWidgetItem* request(int ecu, int position) { return tree.topLevelItem(ecu)->child(position); }
  void add(int ecu, int position) {
    tree.setCurrentItem(request(ecu, position));
    childOf<QPushButton>(screen, "addData").click();
  }
  /// "Engine|Reset Brakes|Bleed", with the order checked.
  std::string scenario() const {
    std::string text;
    int position = 0;
    for (const oScenarioRequest& request : *parameters->initScenario) {
      if (request.Order != ++position) text += "(wrong order) ";
      text += (position == 1 ? "" : " ") + request.EcuName + "|" + request.RequestName;
    }
    return text;
  }
  /// The rows as they are seen, which are those of the scenario.
  std::string rows() const {
    const std::string shown = itemsText(list, {0, 1});
    std::string plain = shown;
    std::erase(plain, '*');
    EXPECT_EQ(plain, scenario());
    return shown;
  }
  std::string rowsAfter(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    list.setFocus();
    QTest::keyClick(&list, key, modifiers);
    return rows();
  }

  SmallVehicle vehicle;
  ScriptedSession& session = vehicle.session;
  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  TarnInit screen;
  QTreeWidget& tree = childOf<QTreeWidget>(screen, "tvRequests");
  QTreeWidget& list = childOf<QTreeWidget>(screen, "lvInitScenario");
  QLineEdit& startSession = childOf<QLineEdit>(screen, "TxStartSession");
  QSignalSpy edited{&screen, &TarnInit::edited};
};

TEST_F(TarnInitTest, OffersWhatCanBeSentOnly) {
  session.ecu(0).findRequest("Status")->findData("Key")->unreadable();
  session.ecu(1).findRequest("Bleed")->addData("Broken").raisingAt("readable");
  const auto offered = offeredRequests(session);
  ASSERT_EQ(offered.size(), 4U) << "Engine, Brakes, Far and Farther";
  EXPECT_EQ(offered[0], (OfferedEcu{"Engine", 16, {"Reset"}}));
  EXPECT_EQ(offered[1], (OfferedEcu{"Brakes", 40, {"Wheels"}})) << "it failed at Bleed";
}

TEST_F(TarnInitTest, RequestsAreAddedMovedAndRemoved) {
  open(request(0, 1));
  EXPECT_EQ(rows(), "*Engine|Reset");
  open(tree.topLevelItem(1));
  tree.topLevelItem(1)->setExpanded(true);
  open(request(1, 1));
  add(0, 0);
  tree.setCurrentItem(request(1, 0));
  QTest::keyClick(&tree, Qt::Key_Return);
  EXPECT_EQ(rows(), "*Engine|Reset Brakes|Bleed Engine|Status Brakes|Wheels");

  list.clearSelection();
  list.topLevelItem(1)->setSelected(true);
  list.topLevelItem(2)->setSelected(true);
  for (const char* const again : {"moved", "the first row is among them: nothing moves"})
    EXPECT_EQ(rowsAfter(Qt::Key_Up, Qt::ControlModifier),
              "*Brakes|Bleed *Engine|Status Engine|Reset Brakes|Wheels")
        << again;
  childOf<QPushButton>(screen, "dataDown").click();
  EXPECT_EQ(rows(), "Engine|Reset *Brakes|Bleed *Engine|Status Brakes|Wheels");
  EXPECT_EQ(rowsAfter(Qt::Key_Delete), "*Engine|Reset Brakes|Wheels");
  EXPECT_EQ(edited.count(), 7);

  auto& notice = *screen.findChild<Notice*>();
  add(3, 0);
  EXPECT_TRUE(notice.isVisible() && notice.text().startsWith("Farther has the address")) << "too large";
  EXPECT_EQ(edited.count(), 7);
  add(2, 0);
  EXPECT_FALSE(notice.isVisible());
  EXPECT_EQ(rows(), "*Engine|Reset Brakes|Wheels Far|Close");
  oScenario& requests = *parameters->initScenario;
  EXPECT_EQ(requests.Item(3).Address, 0x18DA);
  while (requests.Count() < 32767) requests.Add("Reset", "Engine", 16);
  add(0, 0);
  EXPECT_EQ(requests.Count(), 32767);
  EXPECT_TRUE(notice.text().contains("full")) << "an order has 16 bits";
}

TEST_F(TarnInitTest, TheStartSessionIsKeptAsTypedAndCompletedWhenLeft) {
  startSession.setFocus();
  QTest::keyClicks(&startSession, "10G");
  EXPECT_FALSE(startSession.toolTip().isEmpty());
  QTest::keyClick(&startSession, Qt::Key_Backspace);
  QTest::keyClicks(&startSession, "A ");
  EXPECT_TRUE(startSession.toolTip().isEmpty());
  EXPECT_EQ(parameters->startSession, "10A ");
  tree.setFocus();
  EXPECT_EQ(parameters->startSession, "010A");
  EXPECT_EQ(startSession.text(), "010A");
  startSession.setText("10C0");  // as assistive tools do
  EXPECT_EQ(parameters->startSession, "10C0");
}

TEST(StartSessionText, IsPairsOfDigits) {
  EXPECT_EQ(normalisedStartSession("  10A0 "), "10A0");
  EXPECT_EQ(normalisedStartSession("   "), "");
  for (const char* text : {"", "10A0", "10a", " 10 A0 00 "})
    EXPECT_TRUE(isSendableStartSession(text)) << text;
  for (const char* text : {"xyz", "10 A", "10 A0", "10-A0"})
    EXPECT_FALSE(isSendableStartSession(text)) << text;
}

TEST_F(TarnInitTest, ShowsWhatTheNextConfigurationHolds) {
  request(1, 0)->setSelected(true);
  const auto next = std::make_shared<oTarnParameters>(settings);
  next->startSession = "10C0";
  next->initScenario->Add("Reset", "Engine", 16);
  screen.setParameters(next);
  EXPECT_EQ(startSession.text(), "10C0");
  EXPECT_EQ(itemsText(list, {0, 1}), "*Engine|Reset");
  EXPECT_TRUE(request(1, 0)->isSelected()) << "the same vehicle: the tree stays as it is";
  // Without a session the rows stay, but they are none of the next configuration's.
  screen.setSession(nullptr);
  screen.setParameters(parameters);
  parameters->initScenario->Add("Bleed", "Brakes", 17);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Delete);
  QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
  open(request(0, 1));
  EXPECT_EQ(itemsText(list, {0, 1}), "*Engine|Reset");
  EXPECT_FALSE(childOf<QPushButton>(screen, "removeData").isEnabled());
  EXPECT_EQ(scenario(), "Brakes|Bleed");
  EXPECT_EQ(edited.count(), 0);
  startSession.setText("10A0");
  EXPECT_EQ(parameters->startSession, "10A0") << "the text is a whole";
  screen.setParameters(nullptr);
  EXPECT_EQ(tree.topLevelItemCount(), 0);
  startSession.setText("10B0");
  QTest::keyClick(&list, Qt::Key_Delete);
}

}  // namespace
}  // namespace tarnlog::test
