#include <gtest/gtest.h>

#include <QAccessible>
#include <limits>

#include "LiveDisplay.h"
#include "platform/controls/Readable.h"

namespace tarnlog::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string place(const QWidget* widget) {
  if (widget == nullptr) return "none";
  const QRect r = widget->geometry();
  return std::to_string(r.x()) + "," + std::to_string(r.y()) + " " + std::to_string(r.width()) + "x" +
         std::to_string(r.height());
}

bool has(const QImage& picture, const QColor& colour) {
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) == colour) return true;
  return false;
}

TEST(LiveDisplay, StandsInWholePixels) {
  LiveDisplay d(QSize(600, 260));
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.load, 1);
  d.addCurve(d.brake, 1);
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.load, oTarnScope::kBarGraph);
  d.add(d.brake, oTarnScope::kGraph);
  EXPECT_EQ(d.buildLive(), 0);
  // 260 less 18, 28 and 40 for the other blocks; a third of 174 for each curve.
  EXPECT_EQ(place(d.find("GT1")), "120,0 480x175");
  EXPECT_EQ(place(d.find("VT2")), "0,103 120x13");
  EXPECT_EQ(place(d.find("etiquette2")), "0,58 120x46");
  EXPECT_EQ(place(d.find("VT4")), "0,174 160x18");
  EXPECT_EQ(place(d.find("etiquette4")), "160,174 440x18");
  EXPECT_EQ(place(d.find("SL1")), "160,192 440x29");
  EXPECT_EQ(place(d.find("VT5")), "0,207 160x13");
  EXPECT_EQ(place(d.find("etiquette5")), "0,192 160x16");
  EXPECT_EQ(place(d.find("GT3")), "120,220 480x41");
  EXPECT_EQ(d.arrangeLive(QSize(500, 110)), 126 * kTwipsPerPixel - 110 * kTwipsPerPixel);
  EXPECT_EQ(place(d.find("GT1")), "120,0 380x41");
  EXPECT_EQ(place(d.find("SL1")), "160,58 340x28");
}

TEST(LiveDisplay, ShowsTheCurrentValuesInEveryKindOfBlock) {
  LiveDisplay d;
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.brake, 1);
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.load, oTarnScope::kBarGraph, [](oTarnScope& item) {
    item.oTarnSlide()->mini = 0;
    item.oTarnSlide()->maxi = 100;
  });
  d.buildLive();
  d.brake.setValue(std::int32_t{1}, "Pressed");
  d.gear.setValue(std::string("R"));
  for (const double value : {40.0, 60.0, 50.0}) {
    d.speed.setValue(value);
    d.load.setValue(value);
    d.refresh();
  }
  const auto* const graph = d.find<CWGraph>("GT1");
  EXPECT_EQ(graph->endPoint(), 3);
  EXPECT_EQ(graph->valueOf(1, 1), 60);
  EXPECT_EQ(graph->valueOf(2, 2), 1);
  EXPECT_EQ(d.find<TextLabel>("VT1")->text(), "50");
  EXPECT_EQ(d.find<TextLabel>("VT2")->text(), "Pressed");
  EXPECT_EQ(d.find<TextLabel>("VT3")->text(), "R");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(d.find("VT2"))->text(QAccessible::Name), "Brake: Pressed");
  auto* const bar = d.find<CWSlide>("SL1");
  EXPECT_EQ(bar->value(), 50);
  EXPECT_EQ(bar->pointerValue(2), 40);
  EXPECT_EQ(bar->pointerValue(3), 60);
  EXPECT_FALSE(has(bar->grab().toImage(), Qt::red));
  d.load.setValue(120.0);
  d.refresh();
  EXPECT_EQ(bar->pointerValue(3), 100);
  EXPECT_EQ(bar->value(), 120);
  EXPECT_TRUE(has(bar->grab().toImage(), Qt::red)) << "the marker of the highest value";
}

TEST(LiveDisplay, DrawsAThousandBlocksOfAnythingAndFreesThem) {
  LiveDisplay d(QSize(600, 1));
  for (int i = 0; i < 1000; ++i) {
    const DisplayKind kinds[] = {oTarnScope::kGraph, oTarnScope::kDigital, oTarnScope::kBarGraph};
    d.add(i % 2 == 0 ? d.speed : d.gear, kinds[i % 3]);
  }
  EXPECT_GT(d.buildLive(), 0);
  for (const ferrox3::Value& value :
       {ferrox3::Value(kNaN), ferrox3::Value(kInfinity), ferrox3::Value(-kInfinity), ferrox3::Value(1e308),
        ferrox3::Value(std::string("text")), ferrox3::Value(ferrox3::Bytes{1, 2}), ferrox3::Value(0.0)}) {
    d.speed.setValue(value);
    d.gear.setValue(value);
    d.refresh();
    d.widget.grab(QRect(0, 0, 600, 400));
  }
  for (const QSize size : {QSize(1, 1), QSize(50, 1), QSize(600, 1)}) {
    d.arrangeLive(size);
    d.refresh();
    d.widget.grab(QRect(0, 0, 600, 400));
  }
  d.scope.ClearDisplay(d.widget.controls());
  EXPECT_TRUE(d.widget.findChildren<CWGraph*>().isEmpty());
  EXPECT_TRUE(d.widget.findChildren<TextLabel*>().isEmpty());
}

TEST(LiveDisplay, FramesMakeElementsByNumberAndFreeExactlyWhatTheyAreGiven) {
  GraphicFrameWidget widget;
  GraphicFrame& frame = widget.controls();
  EXPECT_EQ(frame.LoadGraph(0), nullptr);
  EXPECT_EQ(frame.LoadCaption(-3), nullptr);
  LabelControl* const caption = frame.LoadCaption(7);
  LabelControl* const value = frame.LoadValueText(7);
  EXPECT_EQ(frame.LoadCaption(7), caption);
  frame.UnloadCaption(value);
  frame.UnloadSlide(nullptr);
  EXPECT_EQ(widget.findChildren<TextLabel*>().size(), 2);
  frame.UnloadCaption(caption);
  EXPECT_EQ(widget.findChild<TextLabel*>("VT7"), widget.findChild<TextLabel*>());
}

TEST(LiveDisplay, FreezesPictureAndValuesAndReleasesThemWhole) {
  LiveDisplay d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.load, oTarnScope::kBarGraph);
  d.add(d.gear, oTarnScope::kDigital);
  int changes = 0;
  QObject::connect(&d.widget, &GraphicFrameWidget::frozenChanged, [&] { ++changes; });
  d.widget.setFrozen(true);
  EXPECT_FALSE(d.widget.isFrozen()) << "nothing to freeze yet";
  d.buildLive();
  const auto feed = [&](double value) {
    d.speed.setValue(value);
    d.load.setValue(value);
    d.gear.setValue(std::to_string(value));
    d.refresh();
  };
  for (int i = 0; i < 30; ++i) feed(i);
  d.widget.setFrozen(true);
  const QImage before = d.widget.grab().toImage();
  for (int i = 30; i < 90; ++i) feed(i);
  EXPECT_EQ(d.widget.grab().toImage(), before);
  EXPECT_EQ(d.find<TextLabel>("VT1")->text(), "29");
  d.widget.setFrozen(false);
  EXPECT_EQ(d.find<TextLabel>("VT1")->text(), "89");
  EXPECT_EQ(d.find<CWGraph>("GT1")->valueOf(1, 45), 45);
  EXPECT_NE(d.widget.grab().toImage(), before);
  d.widget.setFrozen(true);
  d.scope.ClearDisplay(d.widget.controls());
  EXPECT_FALSE(d.widget.isFrozen()) << "the next acquisition is not frozen";
  EXPECT_EQ(changes, 5);
}

/// Rows of this widget that have text, from the frame's top.
std::pair<int, int> inkOf(QWidget& label) {
  const QImage picture = label.grab().toImage();
  const QColor ground = picture.pixelColor(picture.width() - 1, 0);
  int first = -1;
  int last = -1;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) != ground) {
        if (first < 0) first = y;
        last = y;
      }
  return first < 0 ? std::pair(-1, -1) : std::pair(label.y() + first, label.y() + last);
}

TEST(LiveDisplay, LabelsNeverLieUponOneAnother) {
  for (const int curves : {1, 2, 3, 4, 6, 12}) {
    for (const int height : {40, 60, 90, 120, 200}) {
      LiveDisplay d(QSize(400, height));
      auto& data =
          d.request.addData("Temperature of the coolant at the outlet", ferrox3::kDouble, "degrees", 0, 100);
      d.add(data, oTarnScope::kGraph);
      for (int i = 1; i < curves; ++i) d.addCurve(data, 1);
      d.buildLive();
      d.refresh();
      int bottom = -1;
      for (int i = 1; i <= curves; ++i) {
        for (const char* array : {"etiquette", "VT"}) {
          auto* const label = d.find<TextLabel>((array + std::to_string(i)).c_str());
          const auto [first, last] = inkOf(*label);
          if (first < 0) continue;
          EXPECT_GT(first, bottom) << array << i << " of " << curves << " in " << height;
          bottom = last;
        }
      }
      EXPECT_LE(bottom, height);
      const auto [top, end] = inkOf(*d.find("VT1"));
      EXPECT_TRUE(top < 0 || top > 0) << "the first value is cut at the top: " << curves << " in " << height;
    }
  }
}

TEST(LiveDisplay, TextsCanBeReadOnLightAndDarkDesktops) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::WindowText, Qt::white);
  LiveDisplay d;
  d.add(d.speed, oTarnScope::kGraph, [](oTarnScope& item) { item.oTarnGraph()->Color = 0x800000; });
  d.add(d.gear, oTarnScope::kDigital);
  d.buildLive();
  const auto contrast = [&](const char* name) {
    const QImage picture = d.find(name)->grab().toImage();
    const QColor ground = picture.pixelColor(picture.width() - 1, 0);
    double most = 1;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        most = std::max(most, contrastOf(picture.pixelColor(x, y), ground));
    return most;
  };
  EXPECT_EQ(d.find("etiquette2")->grab().toImage().pixelColor(430, 1), QColor(0xF0, 0xF0, 0xF0));
  EXPECT_GT(contrast("etiquette1"), 3);
  EXPECT_GT(contrast("etiquette2"), 10);
  d.widget.setPalette(dark);
  EXPECT_GT(contrast("etiquette1"), 3);
  EXPECT_GT(contrast("etiquette2"), 10);
  EXPECT_TRUE(isDark(d.find("etiquette2")->grab().toImage().pixelColor(430, 1)));
}

}  // namespace
}  // namespace tarnlog::test
