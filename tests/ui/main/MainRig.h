#pragma once

#include <QTabBar>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/vehicle/Vehicle.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/ScriptedEndQuestion.h"
#include "tests/support/SteppedClock.h"
#include "ui/common/Convert.h"
#include "ui/main/LogView.h"
#include "ui/main/MainEnvironment.h"
#include "ui/main/NoticeBar.h"
#include "ui/main/Tarn2001.h"
#include "ui/main/TarnMain.h"

namespace tarnlog::test {

/// The recorder control in a shown window, on a simulated car with one ECU, "Engine", whose speed is
/// `recipe.speed`. Time is stepped; files are in memory: /c.xml records the speed into /rec.
class MainRig {
 public:
  explicit MainRig(const Recipe& recipe = {}) {
    files.files["/car.json"] = vehicleDescription(recipe);
    files.files["/c.xml"] = configuration(recipe);
    vehicle = openVehicle();
    main.resize(800, 600);
    main.show();
    QObject::connect(&main, &TarnMain::acquisitionStopped, &main, [this] { ++stopped; });
  }

  std::unique_ptr<host::OpenedVehicle> openVehicle() {
    return host::openVehicle("/car.json", files, {}, linkClock, [this] {
      if (whileWaiting) std::exchange(whileWaiting, nullptr)();
    });
  }

  template <class Widget>
  Widget& child(const char* name) {
    auto* const found = main.findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }

  /// A click on a tab of the strip, by the tab's key.
  void choose(const char* strip, const QString& key) {
    auto& tabs = child<QTabBar>(strip);
    for (int tab = 0; tab < tabs.count(); ++tab)
      if (tabs.tabData(tab) == key) tabs.setCurrentIndex(tab);
  }
  void view(const QString& key) { choose("TabSmain", key); }
  std::string currentView() {
    auto& tabs = child<QTabBar>("TabSmain");
    return fromQString(tabs.tabData(tabs.currentIndex()).toString());
  }
  std::string visibleViews() {
    std::string names;
    for (const char* const name : {"ctlTarnConfigure", "ctlTarnAcq", "logText"})
      if (child<QWidget>(name).isVisible()) names += std::string(names.empty() ? "" : " ") + name;
    return names;
  }

  void tickUntil(TarnAcq::State state) {
    for (int i = 0; i < 20 && main.ctlTarnAcq().AcqState() != state; ++i) {
      timer.fire();
      linkClock.step(std::chrono::milliseconds(51));
    }
  }
  void ticks(int count) {
    for (int i = 0; i < count; ++i) {
      timer.fire();
      linkClock.step(std::chrono::milliseconds(51));
    }
  }

  /// The lines of the log view, without times of day.
  std::vector<std::string> log() {
    std::vector<std::string> lines;
    std::istringstream text(main.findChild<LogView*>("logText")->pane().text());
    std::getline(text, lines.emplace_back());
    lines.clear();
    for (std::string line; std::getline(text, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line.substr(std::string("19:05:07 ").size()));
    }
    return lines;
  }
  std::vector<std::string> recordFiles() const {
    std::vector<std::string> paths;
    for (const auto& [path, bytes] : files.files)
      if (path.rfind("/rec/", 0) == 0) paths.push_back(path);
    return paths;
  }

  SteppedClock clock;
  ManualLinkClock linkClock{&clock};
  ManualTimer timer;
  MemoryFileSystem files;
  MemorySettingsStore settings;
  ScriptedDialogs dialogs;
  ScriptedEndQuestion endQuestion;
  std::function<void()> whileWaiting;  ///< runs once, while the recorder waits for the car
  std::unique_ptr<host::OpenedVehicle> vehicle;
  MainEnvironment environment{clock, timer, files, settings, dialogs, {}, "tarnlog.xsl", &endQuestion};
  TarnMain main{environment};
  int stopped = 0;
};

}  // namespace tarnlog::test
