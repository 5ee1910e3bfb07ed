#include <gtest/gtest.h>

#include <QAccessible>
#include <cmath>
#include <tuple>

#include "LiveDisplay.h"
#include "platform/controls/Readable.h"
#include "tests/support/Pixels.h"

namespace tarnlog::test {
namespace {

/// "GT1 120,0 480x175; ..."
std::string places(LiveDisplay& display, const std::vector<const char*>& names) {
  std::string text;
  for (const char* const name : names) {
    const QRect r = display.find(name).geometry();
    text += QString::asprintf("%s %d,%d %dx%d; ", name, r.x(), r.y(), r.width(), r.height()).toStdString();
  }
  return text;
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
  EXPECT_EQ(places(d, {"GT1", "VT2", "etiquette2", "VT4", "etiquette4", "SL1", "VT5", "etiquette5", "GT3"}),
            "GT1 120,0 480x175; VT2 0,103 120x13; etiquette2 0,58 120x46; VT4 0,174 160x18; "
            "etiquette4 160,174 440x18; SL1 160,192 440x29; VT5 0,207 160x13; etiquette5 0,192 160x16; "
            "GT3 120,220 480x41; ");
  EXPECT_EQ(d.arrangeLive(QSize(500, 110)), (126 - 110) * kTwipsPerPixel);
  EXPECT_EQ(places(d, {"GT1", "SL1"}), "GT1 120,0 380x41; SL1 160,58 340x28; ");
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
  for (const double value : {40.0, 60.0, 50.0}) d.feed(value);
  const auto& graph = d.find<CWGraph>("GT1");
  EXPECT_EQ(graph.valueOf(1, 1), 60);
  EXPECT_EQ(graph.valueOf(2, 2), 1);
  EXPECT_EQ(d.text("VT1") + " " + d.text("VT2") + " " + d.text("VT3"), "50 Pressed R");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&d.find("VT2"))->text(QAccessible::Name), "Brake: Pressed");
  auto& bar = d.find<CWSlide>("SL1");
  EXPECT_EQ(std::tuple(bar.pointerValue(2), bar.value(), bar.pointerValue(3)), std::tuple(40, 50, 60));
  EXPECT_EQ(countOf(Qt::red, pictureOf(bar)), 0);
  d.feed(120);
  EXPECT_EQ(std::tuple(bar.value(), bar.pointerValue(3)), std::tuple(120, 100));
  EXPECT_GT(countOf(Qt::red, pictureOf(bar)), 0) << "the marker of the highest value";
}

TEST(LiveDisplay, FreezesPictureAndValuesAndReleasesThemWhole) {
  LiveDisplay d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.load, oTarnScope::kBarGraph);
  d.widget.setFrozen(true);
  EXPECT_FALSE(d.widget.isFrozen()) << "nothing to freeze yet";
  d.buildLive();
  for (int i = 0; i < 30; ++i) d.feed(i);
  d.widget.setFrozen(true);
  const QImage before = pictureOf(d.widget);
  for (int i = 30; i < 90; ++i) d.feed(i);
  EXPECT_EQ(pictureOf(d.widget), before);
  EXPECT_EQ(d.text("VT1"), "29");
  d.widget.setFrozen(false);
  EXPECT_EQ(d.text("VT1"), "89");
  EXPECT_EQ(d.find<CWGraph>("GT1").valueOf(1, 45), 45);
  EXPECT_NE(pictureOf(d.widget), before);
  d.widget.setFrozen(true);
  d.scope.ClearDisplay(d.widget.controls());
  EXPECT_FALSE(d.widget.isFrozen()) << "the next acquisition is not frozen";
}

/// Rows of the frame in which this label has text; none: -1. A caption begins with a rule.
std::pair<int, int> inkOf(QWidget& label) {
  const QImage picture = pictureOf(label);
  const QColor ground = picture.pixelColor(picture.width() - 1, picture.height() - 1);
  const int rule = label.objectName().startsWith("etiquette") ? 1 : 0;
  std::pair rows(-1, -1);
  eachPixel(picture, [&](const QColor& colour, int y) {
    if (colour == ground || y < rule) return;
    if (rows.first < 0) rows.first = label.y() + y;
    rows.second = label.y() + y;
  });
  return rows;
}

TEST(LiveDisplay, LabelsNeverLieUponOneAnother) {
  for (const int curves : {1, 2, 3, 4, 6, 12}) {
    for (const int height : {40, 60, 90, 120, 200}) {
      SCOPED_TRACE(std::to_string(curves) + " curves in " + std::to_string(height));
      LiveDisplay d(QSize(400, height));
      auto& data =
          d.request.addData("Temperature of the coolant at the outlet", ferrox3::kDouble, "degrees", 0, 100);
      d.add(data, oTarnScope::kGraph);
      for (int i = 1; i < curves; ++i) d.addCurve(data, 1);
      d.buildLive();
      d.refresh();
      int bottom = -1;
      for (int i = 1; i <= curves; ++i) {
        for (const std::string array : {"etiquette", "VT"}) {
          const auto [first, last] = inkOf(d.find(array + std::to_string(i)));
          if (first < 0) continue;
          EXPECT_GT(first, bottom) << array << i;
          bottom = last;
        }
      }
      EXPECT_LE(bottom, height);
      EXPECT_NE(inkOf(d.find("VT1")).first, 0) << "the first value is cut at the top";
    }
  }
}

TEST(LiveDisplay, TextsCanBeReadOnLightAndDarkDesktops) {
  LiveDisplay d;
  d.add(d.speed, oTarnScope::kGraph, [](oTarnScope& item) { item.oTarnGraph()->Color = 0x800000; });
  d.add(d.gear, oTarnScope::kDigital);
  d.buildLive();
  const auto ground = [&] { return pictureOf(d.find("etiquette2")).pixelColor(430, 1); };
  const auto expectReadable = [&] {
    for (const auto& [name, least] : {std::pair("etiquette1", 3), std::pair("etiquette2", 10)}) {
      const QImage picture = pictureOf(d.find(name));
      const QColor corner = picture.pixelColor(picture.width() - 1, picture.height() - 1);
      double most = 1;
      eachPixel(picture,
                [&](const QColor& colour, int) { most = std::max(most, contrastOf(colour, corner)); });
      EXPECT_GT(most, least) << name;
    }
  };
  EXPECT_EQ(ground(), QColor(0xF0, 0xF0, 0xF0));
  expectReadable();
  d.widget.setPalette(QPalette(QColor(45, 45, 48)));
  EXPECT_TRUE(isDark(ground()));
  expectReadable();
}

}  // namespace
}  // namespace tarnlog::test
