#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <memory>
#include <utility>

#include "config/oTarnParameters.h"
#include "platform/settings/SettingsStore.h"
#include "tests/support/SmallVehicle.h"
#include "ui/select/TarnSelect.h"

namespace tarnlog::test {
namespace {

/// Presses with the keyboard until nothing is left: the button is enabled while it adds something, and keeps
/// the focus, which must not slip to "Remove data" under the finger.
TEST(AddButton, IsThereWhileItAddsSomething) {
  SmallVehicle vehicle;
  const auto parameters = std::make_shared<oTarnParameters>(MemorySettingsStore());
  TarnSelect screen;
  screen.show();
  QApplication::setActiveWindow(&screen);
  auto& tree = *screen.findChild<QTreeView*>("TreeAllData");
  auto& add = *screen.findChild<QPushButton*>("addData");
  const auto select = [&](const char* text) {
    const auto found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_FALSE(found.isEmpty()) << text;
    tree.setCurrentIndex(found.front());
  };
  screen.setXmlSession(std::make_shared<SessionDocument>(std::move(vehicle.catalogue)));
  tree.expandAll();
  select("Speed");
  EXPECT_FALSE(add.isEnabled()) << "there is no configuration";
  screen.setParameters(parameters);
  tree.expandAll();
  select("Engine");
  EXPECT_FALSE(add.isEnabled()) << "an ECU stands for no data";
  select("Status");
  EXPECT_TRUE(add.isEnabled());
  select("Front");
  add.setFocus();
  QTest::keyClick(&add, Qt::Key_Space);
  EXPECT_TRUE(add.hasFocus());
  QTest::keyClick(&add, Qt::Key_Space);
  EXPECT_EQ(parameters->Count(), 2);
  EXPECT_FALSE(add.isEnabled()) << "the request has nothing left";
  EXPECT_EQ(screen.focusWidget()->objectName(), "ListDataToRecord");
}

}  // namespace
}  // namespace tarnlog::test
