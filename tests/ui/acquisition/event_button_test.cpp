#include <gtest/gtest.h>

#include <QPushButton>

#include "platform/controls/CWGraph.h"
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
  const QString tip = button.toolTip();
  EXPECT_TRUE(tip.contains("20 polling cycles"));
  for (int i = 0; i < 19; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event grey 1 told");
  EXPECT_EQ(button.toolTip(), tip) << "a text each cycle would take memory";
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
  rig.acq.AskStopAcqNow();
  for (int i = 0; i < 3; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 0");
}

/// An XML file ends with its recording; the event's cycles run on without a file.
TEST(EventButton, CountsNoFurtherWhenTheFileIsClosedEarly) {
  ViewRig rig;
  rig.parameters->fileFormat = ".xml";
  const auto recordAnEvent = [&] {
    rig.acq.ToggleRecording();
    rig.tick();
    rig.acq.RecordUserEvent();
    rig.tick();
    rig.acq.ToggleRecording();
  };
  rig.start();
  recordAnEvent();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 19 told");
  rig.tick();
  EXPECT_FALSE(rig.acq.Recording());
  EXPECT_EQ(eventButton(rig), "Event 1 grey 0 told");
  for (int i = 0; i < 18; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 0");
  recordAnEvent();
  rig.status.failing.next("no answer", 2);
  for (int i = 0; i < 2; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 2 grey 0 told") << "the link was lost while the stop was under way";
}

/// Also those of no recording, which have a file as well.
TEST(EventFlags, StandWhereAnEventBegan) {
  ViewRig rig;
  const auto flags = [&] {
    std::string texts;
    for (const GraphMark& mark : rig.child<CWGraph>("GT1").marks())
      texts += mark.text.toStdString() + '@' + std::to_string(mark.point) + ' ';
    return texts;
  };
  const auto event = [&] {
    rig.acq.RecordUserEvent();
    for (int i = 0; i < 20; ++i) rig.tick();
  };
  rig.start();
  event();
  rig.acq.ToggleRecording();
  rig.tick();
  event();
  rig.acq.ToggleRecording();
  rig.tick();
  event();
  EXPECT_EQ(flags(), "Event@0 Start 1@20 Event 1@20 Stop 1@40 Event@41 ");
  rig.acq.StartReadingData();
  for (int i = 0; i < 20; ++i) rig.tick(51);
  event();
  EXPECT_TRUE(flags().starts_with("Event@")) << "of the next acquisition: " << flags();
}

}  // namespace
}  // namespace tarnlog::test
