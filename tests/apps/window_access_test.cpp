#include <gmock/gmock.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>
#include <QTabBar>
#include <QTextBrowser>
#include <QTreeView>
#include <algorithm>
#include <cerrno>
#include <fstream>
#include <set>
#include <system_error>

#include "apps/tarnlog/ConnectDialog.h"
#include "apps/tarnlog/GuideFiles.h"
#include "apps/tarnlog/LinkAdvice.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/apps/WindowRig.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/TempFolder.h"
#include "ui/common/Convert.h"
#include "ui/common/NoticeBar.h"
#include "ui/live/ReadingBox.h"
#include "ui/main/Tarn2001.h"

namespace tarnlog {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Parts of a control that the toolkit makes: people reach the control itself.
bool belongsToControl(const QWidget& widget) {
  const QString type = widget.metaObject()->className();
  return widget.objectName().startsWith("qt_") || type == "QScrollBar" || type == "QLineEditIconButton" ||
         type == "QHeaderView" || qobject_cast<QComboBox*>(widget.parentWidget()) != nullptr ||
         (qobject_cast<QTabBar*>(widget.parentWidget()) != nullptr) || type == "QToolBarExtension";
}

bool isControl(const QWidget& widget) {
  return widget.isVisible() && !belongsToControl(widget) &&
         (widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(&widget) != nullptr);
}

/// Seen, and read out, without a focus of its own.
bool isRead(const QWidget& widget) {
  return widget.isVisible() && (qobject_cast<const QMenu*>(&widget) != nullptr ||
                                dynamic_cast<const ReadingBox*>(&widget) != nullptr);
}

/// A combo box tells its value as its name, whatever it is called.
QString nameOf(QWidget& widget) {
  if (!widget.accessibleName().isEmpty() || qobject_cast<QComboBox*>(&widget) != nullptr)
    return widget.accessibleName();
  QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&widget);
  return access == nullptr ? QString() : access->text(QAccessible::Name);
}

std::string described(const QWidget& widget) {
  return std::string(widget.metaObject()->className()) + " " + fromQString(widget.objectName());
}

/// The program's window on a simulated car with "Engine/Status/Speed".
struct WindowAccess : ::testing::Test, test::WindowRig {
  WindowAccess() {
    files.files["/car.json"] = test::vehicleDescription({});
    files.files["/c.xml"] = test::configuration({});
    WindowEnvironment environment{{clock, timer, files, settings, dialogs, {}},
                                  [this](const CarConnection& car, const LinkHooks& hooks) {
                                    opened.push_back(car.vehicle + " " + car.link);
                                    hooks.whileWaiting();
                                    return host::openVehicle(car.vehicle, files, {}, linkClock, [] {});
                                  }};
    environment.recorder.guide = {[this] { ++guideOpened; }, guideIn(TARNLOG_DOCS, system, {}).messages};
    window.emplace(std::move(environment));
    window->resize(1000, 760);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&*window));
  }
  void TearDown() override { window.reset(); }  // before what it uses
  void choose(const char* strip, int tab) { find<QTabBar>(strip)->setCurrentIndex(tab); }
  /// What is seen now: no control without a name, no button that the keyboard cannot reach.
  void look(const char* page) {
    QApplication::processEvents();
    for (QWidget* const top : QApplication::topLevelWidgets())
      for (QWidget* const widget : top->findChildren<QWidget*>()) {
        if (!isControl(*widget) && !isRead(*widget)) continue;
        ++controls;
        const QList<QAction*> entries = isRead(*widget) ? widget->actions() : QList<QAction*>();
        const bool allNamed = std::all_of(entries.begin(), entries.end(), [](const QAction* entry) {
          return entry->isSeparator() || !entry->text().isEmpty();
        });
        if (nameOf(*widget).isEmpty() || !allNamed) unnamed.push_back(page + (": " + described(*widget)));
        if (isControl(*widget) && (widget->focusPolicy() & Qt::TabFocus) == 0)
          unreached.push_back(page + (": " + described(*widget)));
      }
  }
  /// The same, and Tab comes round to every control; in a group of radio buttons to the one that is chosen.
  void walk(const char* page) {
    look(page);
    QApplication::setActiveWindow(&*window);
    std::set<const QWidget*> reached;
    for (QWidget* at = window->focusWidget(); reached.size() < 100; at = window->focusWidget()) {
      QTest::keyClick(at == nullptr ? &*window : at, Qt::Key_Tab);
      if (!reached.insert(window->focusWidget()).second) break;
    }
    for (const QWidget* const widget : window->findChildren<QWidget*>()) {
      const auto* const radio = qobject_cast<const QRadioButton*>(widget);
      const bool wanted =
          isControl(*widget) && widget->isEnabled() && (radio == nullptr || radio->isChecked());
      if (wanted && !reached.contains(widget)) unreached.push_back(page + (": " + described(*widget)));
    }
  }
  /// The menu of what has this name, which the menu key or the right button opens.
  void lookAtMenu(const char* owner) {
    auto& widget = *find<QWidget>(owner);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&widget, &asked);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << owner;
    look(owner);
    QApplication::activePopupWidget()->close();
  }
  QWidget* help() {
    for (auto* const panel : window->findChildren<QWidget*>("KeyboardHelp"))
      if (panel->isVisible()) return panel;
    return nullptr;
  }
  void drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QWidget* const page = find<QListWidget>("vehicles")->parentWidget()->parentWidget();
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(page, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent dropped({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(page, &dropped);
    QApplication::processEvents();
  }

  SystemFileSystem system;  ///< the guide is the real one
  std::vector<std::string> opened;
  std::vector<std::string> unnamed;
  std::vector<std::string> unreached;
  int controls = 0;
  int guideOpened = 0;
};

TEST_F(WindowAccess, EveryControlOfEveryPageHasANameAndIsReachedByKey) {
  walk("first page");
  find<QAction>("connectToCar")->trigger();
  look("connect");
  delete find<ConnectDialog>();
  window->openVehicle("/car.json");
  window->openConfiguration("/c.xml");
  for (const char* const screen : {"data", "param", "scope", "initsce"}) {
    window->recorder().ctlTarnConfigure().chooseScreen(screen);
    walk(screen);
  }
  window->recorder().ctlTarnConfigure().chooseScreen("scope");
  auto& types = *find<QComboBox>("ScopeType");
  for (int type = 0; type < types.count(); ++type) {
    types.setCurrentIndex(type);
    look("a kind of display");
  }
  types.setCurrentText("Graph");
  lookAtMenu("ListViewScope");
  choose("TabSmain", 1);
  ticks(12);
  for (const int shown : {0, 1}) {
    find<QTabBar>("TabStripVisu")->setCurrentIndex(shown);
    walk("acquire");
  }
  lookAtMenu("GT1");
  QApplication::setActiveWindow(&*window);
  find<QWidget>("GT1")->setFocus();
  for (const Qt::Key key : {Qt::Key_P, Qt::Key_Home, Qt::Key_A, Qt::Key_End, Qt::Key_B, Qt::Key_Left})
    QTest::keyClick(find<QWidget>("GT1"), key);
  EXPECT_TRUE(find<QWidget>("CursorBox")->isVisible());
  look("looking back");
  lookAtMenu("GT1");
  find<QTabBar>("TabStripVisu")->setCurrentIndex(0);
  find<QLineEdit>("ListFilter")->setText("e");
  look("filtered");
  for (const char* const owner : {"LVvisuText", "ListHeader", "log"}) lookAtMenu(owner);
  window->recorder().notices().showNotice("a", "b", {"c", "d"}, {"e", [] {}});
  choose("TabSmain", 2);
  ticks(2);
  walk("log");
  EXPECT_GT(controls, 80);
  EXPECT_THAT(unnamed, IsEmpty());
  EXPECT_THAT(unreached, IsEmpty());
}

/// The focus was nowhere after a vehicle had been opened: Ctrl+F did nothing before the first click.
TEST_F(WindowAccess, WalksByKeyFromTheFirstPageToTheLog) {
  window->openVehicle("/car.json");
  ASSERT_NE(window->focusWidget(), nullptr);
  QTest::keyClick(window->focusWidget(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(window->focusWidget()->objectName(), "filterAllData");
  auto& tabs = *find<QTabBar>("TabSmain");
  QWidget* first = find<TarnMain>();
  while (first->focusPolicy() == Qt::NoFocus || !first->isVisible()) first = first->nextInFocusChain();
  EXPECT_EQ(first, &tabs);
  EXPECT_EQ(tabs.nextInFocusChain()->window(), &*window);
  tabs.setFocus();
  QTest::keyClick(&tabs, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(window->focusWidget()->objectName(), "filterAllData");

  window->openConfiguration("/c.xml");
  QTest::keyClick(window->focusWidget(), Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(tabs.currentIndex(), 1);
  ticks(12);
  QTest::keyClick(window->focusWidget(), Qt::Key_P);
  auto& pause = *find<QAbstractButton>("pause");
  EXPECT_TRUE(pause.isChecked());
  pause.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&pause, Qt::Key_Space);
  EXPECT_FALSE(pause.isChecked()) << "a focused button is what space presses";
  QTest::keyClick(&pause, Qt::Key_L, Qt::AltModifier);
  ticks(2);
  EXPECT_EQ(tabs.currentIndex(), 2);
}

TEST_F(WindowAccess, HelpOfEachPageComesAndGoesByKey) {
  std::vector<std::string> titles;
  const auto look = [&](QWidget* from) {
    QTest::keyClick(from == nullptr ? &*window : from, Qt::Key_F1);
    ASSERT_NE(help(), nullptr);
    titles.push_back(fromQString(help()->windowTitle()));
    QTest::keyClick(help(), Qt::Key_Escape);
    EXPECT_EQ(help(), nullptr);
    window->activateWindow();
  };
  look(window->focusWidget());
  window->openVehicle("/car.json");
  look(window->focusWidget());
  look(find<QTabBar>("TabSmain"));
  choose("TabStripMain", 2);
  look(find<QWidget>("ListViewScope"));
  choose("TabSmain", 1);
  ticks(12);
  look(find<QTabBar>("TabSmain"));
  look(find<QWidget>("CommandStartStop"));
  choose("TabSmain", 2);
  ticks(2);
  look(find<QWidget>("logText"));
  EXPECT_THAT(titles,
              ::testing::ElementsAre("Keys of the first page", "Keys of the data selection",
                                     "Keys of the data selection", "Keys of the display parameters",
                                     "Keys while acquiring", "Keys while acquiring", "Keys of the log"));

  QTest::keyClick(window->focusWidget(), Qt::Key_F1);
  ASSERT_NE(help(), nullptr);
  help()->findChild<QAbstractButton*>("openGuide")->click();
  EXPECT_EQ(guideOpened, 1);
  help()->findChild<QAbstractButton*>("showMessages")->click();
  EXPECT_TRUE(find<QTextBrowser>()->toPlainText().contains("no ECU answers"));
  choose("TabSmain", 0);
  EXPECT_EQ(help(), nullptr) << "it was about another page";
}

TEST_F(WindowAccess, TakesFilesThatAreDroppedOnTheFirstPage) {
  drop({QUrl::fromLocalFile("/notes.pdf")});
  EXPECT_THAT(fromQString(find<NoticeBar>()->notice("dropped")), HasSubstr("notes.pdf is no vehicle"));
  drop({QUrl::fromLocalFile("/drive.trace")});
  EXPECT_THAT(opened, Contains("obd2: replay:/drive.trace"));
  EXPECT_TRUE(find<QListWidget>("vehicles")->parentWidget()->isVisible());
  drop({QUrl::fromLocalFile("/c.xml"), QUrl::fromLocalFile("/car.json")});
  EXPECT_EQ(window->windowTitle(), "c.xml[*] - Car - Tarnlog2001");
}

TEST_F(WindowAccess, LooksAtRecordsInAWindowBesideItsOwn) {
  const test::TempFolder folder;
  for (const char* const name : {"a.txt", "b.txt"})
    std::ofstream(folder / name) << "time\tevent\tCar\r\n17/11/26\t\tEngine\r\n10:00:00\t\tSpeed(km/h)\r\n"
                                    "0.00\tStart\t1\r\n0.10\t\t2\r\n";
  const auto review = [] {
    for (QWidget* const each : QApplication::topLevelWidgets())
      if (each->objectName() == "reviewWindow" && each->isVisible()) return each;
    return static_cast<QWidget*>(nullptr);
  };
  const auto titled = [&](const char* names) {
    return QTest::qWaitFor([&] { return review() != nullptr && review()->windowTitle().contains(names); });
  };
  drop({QUrl::fromLocalFile(toQString(folder / "a.txt")), QUrl::fromLocalFile(toQString(folder / "b.txt"))});
  EXPECT_TRUE(titled("b.txt"));
  Quality quality;
  quality.counts = {.received = 9, .lost = 1};
  quality.till = 720'300'000;
  window->recordings().recorded(folder / "a.txt", quality, 23);
  EXPECT_THAT(fromQString(find<NoticeBar>()->notice("quality")),
              StartsWith("Recorded 12 min, 23 data: a.txt\n9 of 10 answers (1 lost); "));
  EXPECT_TRUE(find<NoticeBar>()->warns("quality"));
  for (QAbstractButton* const button : find<NoticeBar>()->findChildren<QAbstractButton*>())
    if (button->text() == "Look at it") button->click();
  EXPECT_TRUE(titled("a.txt - "));
  for (const bool inGraph : {false, true}) {
    dialogs.filesToOpen = {toQString(folder / (inGraph ? "a.txt" : "b.txt"))};
    if (inGraph) QTest::keyClick(review(), Qt::Key_F6);
    QTest::keyClick(review(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(titled(inGraph ? "a.txt - " : "b.txt - ")) << "one key, one dialog, wherever the focus is";
  }
  for (auto* const recent : window->findChildren<QMenu*>())
    if (recent->title() == "Recent recor&ds") {
      emit recent->aboutToShow();
      EXPECT_EQ(recent->actions().size(), 2);
    }
  window->endAndClose();
  EXPECT_TRUE(QTest::qWaitFor([&] { return review() == nullptr; })) << "it goes with the recorder's";
}

/// Each failure says what to do, in the words of the system's language.
TEST(LinkAdvice, SaysWhatToDo) {
  const char* const port = "elm327:///dev/ttyUSB0";
  const char* const adapter = "elm327://192.168.0.10:35000";
  for (const auto& [error, what, vehicle, link, says] :
       {std::tuple(ENOENT, "the adapter cannot be reached: /dev/ttyUSB0", "obd2:", port, "ls /dev/tty*"),
        {ENOENT, "/drive.trace", "obd2:", "replay:/drive.trace", "choose the file again"},
        {ENOENT, "/car.json", "/car.json", port, "choose the file again"},
        {EACCES, "/dev/ttyUSB0", "obd2:", port, "dialout"},
        {ECONNREFUSED, "192.168.0.10:35000", "obd2:", adapter, "Wi-Fi"}}) {
    const std::string text = std::string(what) + ": " + std::generic_category().message(error);
    EXPECT_THAT(fromQString(LinkAdvice::on(toQString(text), {vehicle, link})), HasSubstr(says));
  }
  EXPECT_EQ(LinkAdvice::on("no ECU answers: is the ignition on?", {"obd2:", port}), "")
      << "it says so itself";
}

TEST(GuideFiles, GiveThePagesThatAreThere) {
  test::MemoryFileSystem files;
  EXPECT_FALSE(guideIn("/none", files, {}).open);
  files.files["/docs/first-record.md"] = "x";
  files.files["/docs/connecting-to-a-car.md"] =
      "# A\n\n## What the messages mean\n\n| a |\n| - |\n| b |\n\n## Next\n";
  std::string shown;
  const Guide guide = guideIn("/docs", files, [&](const std::string& path) { shown = path; });
  guide.open();
  EXPECT_EQ(shown, "/docs/first-record.md");
  EXPECT_EQ(fromQString(guide.messages()), "## What the messages mean\n\n| a |\n| - |\n| b |\n");
}

}  // namespace
}  // namespace tarnlog
