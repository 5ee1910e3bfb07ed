#include <gtest/gtest.h>

#include <QPushButton>

#include "tests/ui/acquisition/ViewRig.h"
#include "ui/acquisition/GreyableButton.h"

namespace tarnlog::test {
namespace {

/// Caption, look and number; what the tip tells, assistive technology reads as well.
std::string eventButton(const ViewRig& rig) {
  const auto& button = static_cast<GreyableButton&>(rig.child<QPushButton>("EventBouton"));
  const bool told = !button.accessibleDescription().isEmpty();
  EXPECT_EQ(told, button.toolTip() == button.accessibleDescription());
  return button.text().toStdString() + (button.greyed() ? " grey " : " ") + std::to_string(button.count()) +
         (told ? " told" : "");
}

TEST(EventButton, CountsTheCyclesUntilAnotherEventIsPossible) {
  ViewRig rig;
  rig.start();
  EXPECT_EQ(eventButton(rig), "Event 0");
  auto& button = rig.child<QPushButton>("EventBouton");
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(eventButton(rig), "Event grey 20 told");
  for (int i = 0; i < 19; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event grey 1 told");
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(rig.filesWith("event"), 1);
  EXPECT_TRUE(button.hasFocus());
  rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 0");

  // One that the end of the acquisition cuts off counts no further.
  rig.acq.ToggleRecording();
  rig.tick();
  QTest::keyClick(&button, Qt::Key_Space);
  rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 19 told");
  EXPECT_NE(button.accessibleDescription().indexOf("19"), -1);
  rig.acq.AskStopAcqNow();
  for (int i = 0; i < 3; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 0");
}

}  // namespace
}  // namespace tarnlog::test
