#pragma once

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <cerrno>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "SourceDir.h"
#include "apps/tarnlog/ConnectDialog.h"
#include "apps/tarnlog/EndRecordingBox.h"
#include "apps/tarnlog/GuideFiles.h"
#include "apps/tarnlog/OpeningProgress.h"
#include "apps/tarnlog/PublishDialog.h"
#include "config/oTarnParameters.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/apps/WindowRig.h"
#include "tests/support/TempFolder.h"
#include "ui/common/Convert.h"
#include "ui/common/NoticeBar.h"
#include "ui/main/Tarn2001.h"
#include "ui/review/ForeignTableDialog.h"
#include "ui/review/ReviewGraphWidget.h"

namespace tarnlog::test {

/// Walks through what the program shows, with the road car of the examples, and stops everywhere to look at
/// it. Made once the translators are there.
class ScreenTour : public WindowRig {
 public:
  using Look = std::function<void(const std::string& stop)>;

  explicit ScreenTour(Look look, QSize size = {1100, 750}) : look_(std::move(look)), size_(size) {
    settings.write("PathName", folder.path());
    WindowEnvironment environment{{clock, timer, disk, settings, dialogs, {}, "tarnlog.xsl"},
                                  [this](const CarConnection& car, const LinkHooks&) {
                                    return host::openVehicle(car.vehicle, disk, {}, linkClock, [] {});
                                  }};
    environment.recorder.guide = {[] {}, guideIn(TARNLOG_SOURCE_DIR "/docs", disk, {}).messages};
    environment.exampleVehicles = {kVehicle};
    environment.findDevices = [] { return CarDevices{{"/dev/ttyUSB0"}, {"can0"}}; };
    environment.folderOfVehicle = [](const std::string& parent, const auto&, const auto& tell) {
      tell(parent);
      return parent;
    };
    window.emplace(std::move(environment));
    window->resize(size_);
    window->show();
    QTest::qWait(0);
  }
  ~ScreenTour() { window.reset(); }  // before what it uses

  void walk() {
    firstPage();
    window->openVehicle(kVehicle);
    window->openConfiguration(TARNLOG_SOURCE_DIR "/examples/road-car.xml");
    window->recorder().ctlTarnConfigure().Parameters()->fileFolder = folder.path();
    configure();
    acquire();
    tell();
    review();
    ask();
  }

  TempFolder folder;
  SystemFileSystem disk;

 private:
  static constexpr const char* kVehicle = TARNLOG_SOURCE_DIR "/examples/road-car.vehicle.json";

  void look(const std::string& stop) {
    QApplication::processEvents();
    look_(stop);
  }
  void chooseTab(const char* strip, int tab) {
    find<QTabBar>(strip)->setCurrentIndex(tab);
    ticks(2);
  }
  void lookAtHelp(const std::string& stop) {
    window->activateWindow();
    QTest::keyClick(&*window, Qt::Key_F1);
    look(stop + ", help");
    for (auto* const panel : window->findChildren<QWidget*>("KeyboardHelp")) panel->hide();
  }
  void lookAtMenu(QWidget& owner) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, owner.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&owner, &asked);
    look("menu of " + fromQString(owner.objectName()));
    if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
  }

  void firstPage() {
    for (auto* const menu : window->findChildren<QMenu*>()) emit menu->aboutToShow();
    look("first page");
    lookAtHelp("first page");
    find<QAction>("connectToCar")->trigger();
    auto* const dialog = find<ConnectDialog>();
    for (int row = 0; row < dialog->findChild<QListWidget*>("links")->count(); ++row) {
      dialog->findChild<QListWidget*>("links")->setCurrentRow(row);
      look("connect");
    }
    dialog->setFailure("/dev/ttyUSB0: " + toQString(std::generic_category().message(EACCES)));
    look("connect, failed");
    delete dialog;
  }

  void configure() {
    for (const char* const screen : {"data", "param", "initsce", "scope"}) {
      window->recorder().ctlTarnConfigure().chooseScreen(screen);
      look(screen);
      lookAtHelp(screen);
    }
    auto& types = *find<QComboBox>("ScopeType");
    for (int type = 0; type < types.count(); ++type) {
      types.setCurrentIndex(type);
      look("scope, kind " + std::to_string(type));
    }
    types.setCurrentIndex(3);
    lookAtMenu(*find<QWidget>("ListViewScope"));
  }

  void acquire() {
    look("before acquiring");
    chooseTab("TabSmain", 1);
    ticks(40);
    press("CommandStartStop");
    ticks(40);
    press("EventBouton");
    ticks(10);
    for (const int shown : {0, 1}) {
      chooseTab("TabStripVisu", shown);
      look(shown == 0 ? "acquire, list" : "acquire, graphs");
    }
    lookAtHelp("acquire");
    lookAtMenu(*find<QWidget>("GT1"));
    QApplication::setActiveWindow(&*window);
    find<QWidget>("GT1")->setFocus();
    for (const Qt::Key key : {Qt::Key_P, Qt::Key_Home, Qt::Key_A, Qt::Key_End, Qt::Key_B, Qt::Key_Left})
      QTest::keyClick(find<QWidget>("GT1"), key);
    EXPECT_TRUE(find<QWidget>("LblPaused")->isVisible());
    look("acquire, paused");
    lookAtMenu(*find<QWidget>("GT1"));
    chooseTab("TabStripVisu", 0);
    find<QLineEdit>("ListFilter")->setText("speed");
    look("acquire, filtered");
    for (const char* const owner : {"LVvisuText", "ListHeader", "log"}) lookAtMenu(*find<QWidget>(owner));
    press("CommandStartStop");
    ticks(40);
    window->recorder().stopAcquisition();
    ticks(10);
    chooseTab("TabSmain", 2);
    look("log");
    lookAtHelp("log");
  }

  /// What the bar of messages tells.
  void tell() {
    RecordingNotices& notices = window->recordings();
    for (const auto kind : {WriteTrouble::Kind::Begun, WriteTrouble::Kind::CutShort,
                            WriteTrouble::Kind::NotSynced, WriteTrouble::Kind::Ended})
      for (const char* const path : {"a.txt", "a.mf4"}) {
        notices.writeTrouble({.kind = kind, .path = path, .why = "7"});
        look("a file cannot be written");
        find<NoticeBar>()->removeNotice("write " + QString(path));
      }
    notices.openFailed("7");
    notices.measurementFailed("7");
    notices.publishing("7", true);
    Quality quality;
    quality.counts = {.received = 9, .late = 1, .refused = 2, .lost = 1, .gaps = 2, .clockSteps = 2};
    quality.rows = quality.rowsSynced = 7;
    quality.servicesSent.push_back({.sent = 7, .name = "7"});
    notices.recorded(folder / "a.txt", quality, 23);
    look("messages");
    for (const char* const subject : {"open", "measurement", "publish", "quality"})
      find<NoticeBar>()->removeNotice(subject);
  }

  std::string writeRecord(const std::string& name) const {
    std::string text =
        "time\tevent\t\"Engine\"\t\"Engine\"\t\"Gearbox\"\r\n1.2.26\t\t\"Status\"\t\"Status\"\t\"Id\"\r\n"
        "10:00:00\t\t\"Speed(km/h)\"\t\"Brake\"\t\"Gear\"\r\n";
    for (int t = 0; t <= 60; ++t) {
      const char* const mark = t == 0 ? "Start" : t == 30 ? "event1" : t == 60 ? "Stop" : "";
      text += std::to_string(t) + "\t\"" + mark + "\"\t" + std::to_string(3 * t) + "\t" +
              std::to_string(t / 40) + "\t" + (t == 0 ? "7" : "8") + "\r\n";
    }
    std::ofstream(folder / name, std::ios::binary) << text;
    return folder / name;
  }

  void review() {
    const std::string path = writeRecord("1-2-26_10h00mn00.txt");
    find<QAction>("openRecord")->trigger();  // and nothing is chosen
    QWidget* reviewer = nullptr;
    for (QWidget* const each : QApplication::topLevelWidgets())
      if (each->objectName() == "reviewWindow") reviewer = each;
    reviewer->resize(size_);
    look("no record");
    window->openFiles({path, writeRecord("2-2-26_10h00mn00.txt")});
    auto& figures = *reviewer->findChild<QAbstractItemView*>("reviewFigures");
    EXPECT_TRUE(QTest::qWaitFor([&] { return figures.model()->rowCount() >= 2; }, 10'000));
    auto& graph = *reviewer->findChild<ReviewGraphWidget*>();
    graph.setFocus();
    QTest::mouseClick(&graph, Qt::LeftButton, {}, graph.rect().center());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_A}) QTest::keyClick(&graph, key);
    for (int row = 0; row < 5; ++row) QTest::keyClick(&graph, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&graph, Qt::Key_B);
    for (auto* const menu : reviewer->findChildren<QMenu*>()) emit menu->aboutToShow();
    auto& panes = *reviewer->findChild<QTabWidget*>();
    for (int pane = 0; pane < panes.count(); ++pane) {
      panes.setCurrentIndex(pane);
      look("review, pane " + std::to_string(pane));
    }
    auto& what = *reviewer->findChild<QComboBox*>("findWhat");
    for (int kind = 0; kind < what.count(); ++kind) {
      what.setCurrentIndex(kind);
      for (const char* const level : {"", "60", "9999"}) {
        reviewer->findChild<QLineEdit*>("findLevel")->setText(level);
        QTest::keyClick(&graph, Qt::Key_F3);
        look("review, found");
      }
    }
    for (const char* const tool : {"reviewCompare", "reviewHandOn"}) {
      reviewer->findChild<QAbstractButton*>(tool)->click();
      look(tool);
      if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
    }
    lookAtMenu(graph);
    QTest::keyClick(reviewer, Qt::Key_F1);
    look("review, help");
    std::ofstream(folder / "foreign.csv") << "t,7\n1,2\n2,3\n";
    {
      ForeignTableDialog dialog(folder / "foreign.csv", &settings, reviewer);
      dialog.show();
      look("table of another program");
    }
    reviewer->close();
  }

  /// Boxes and dialogs; those that wait in a loop of their own are looked at from within it.
  void ask() {
    PublishDialog publish(settings, dialogs, &*window);
    publish.show();
    look("publish");
    publish.hide();
    EndRecordingBox question;
    question.ask(&*window, [](bool) {});
    look("end recording");
    question.withdraw();
    {
      OpeningProgress progress(*window, "7");
      find<QDialog>("openingProgress")->show();
      look("opening");
    }
    QtDialogs boxes;
    const auto answer = [&](const char* stop, const std::function<void()>& show) {
      QTimer asked;
      QObject::connect(&asked, &QTimer::timeout, [&] {
        QWidget* const box = QApplication::activeModalWidget();
        if (box == nullptr) return;
        asked.stop();
        look(stop);
        box->close();
      });
      asked.start(0);
      show();
    };
    answer("changed work", [&] { boxes.changedWork(&*window, "7"); });
    answer("incomplete work", [&] { boxes.incompleteWork(&*window, "7"); });
    for (QAction* const action : window->findChildren<QAction*>())
      if (action->text().contains("Tarnlog2001")) answer("about", [&] { action->trigger(); });
  }

  Look look_;
  QSize size_;
};

}  // namespace tarnlog::test
