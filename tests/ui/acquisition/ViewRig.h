#pragma once

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <string>

#include "tests/support/AcqRig.h"
#include "tests/support/WidgetText.h"
#include "ui/acquisition/AcqView.h"

namespace tarnlog::test {

/// The acquisition view, with a graph of the speed and a digital value of "Load".
struct ViewRig : ScriptedDrive {
  ViewRig() {
    add(speed).SetGraph("", false, 0, 250, 100, 0xFF0000);
    add(load).SetNumeric("");
    view.resize(800, 500);
    view.show();
    QApplication::setActiveWindow(&view);  // only it has shortcuts
    acq.setSession(&session);
  }

  /// Until values are polled, and the first row of them is there.
  void start() {
    acq.StartReadingData(parameters);
    for (int i = 0; i < 20 && !acq.hasRow(); ++i) tick(51);
  }
  void tick(Milliseconds step = 10) {
    timer.fire();
    clock.step(step);
  }

  template <class Widget = QWidget>
  Widget& child(const char* name) const {
    return childOf<Widget>(view, name);
  }
  /// How many files have this in their names.
  std::ptrdiff_t filesWith(const std::string& part) const {
    return std::count_if(files.files.begin(), files.files.end(),
                         [&](const auto& file) { return file.first.find(part) != std::string::npos; });
  }
  void key(const char* widget, int key) const { QTest::keyClick(&child(widget), Qt::Key(key)); }

  /// Makes the list and the graphs longer than the window.
  void addMore(int count) {
    for (int i = 0; i < count; ++i)
      add(status.addData("More " + std::to_string(i))).SetGraph("", false, 0, 100, 100, 0xFF0000);
  }

  ScriptedData& load = status.addData("Load", ferrox3::kDouble, "%");
  AcqView view{{clock, timer, files, UserLocale{}, "tarnlog.xsl"}, &settings};
  TarnAcq& acq = view.acq();
};

}  // namespace tarnlog::test
