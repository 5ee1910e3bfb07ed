#include <gtest/gtest.h>

#include "tests/support/AcqRig.h"
#include "tests/support/RecordingControls.h"

namespace tarnlog {
namespace {

using test::AcqRig;

/// A graph area of this size in pixels, and how far it can be scrolled.
class RecordingArea : public GraphArea {
 public:
  GraphicFrame& frame() override { return frame_; }
  Twips visibleWidth() const override { return width * kTwipsPerPixel; }
  Twips visibleHeight() const override { return height * kTwipsPerPixel; }
  void setScrollRange(std::int16_t most, std::int16_t value) override {
    maximum = most;
    scroll = value;
  }
  std::int16_t scrollValue() const override { return scroll; }

  Twips width = 600, height = 200;
  std::int16_t maximum = -1, scroll = -1;

 private:
  test::RecordingFrame frame_{0, 0};
};

/// An acquisition that shows this many graphs in an area 200 pixels high.
struct GraphsRig : AcqRig {
  explicit GraphsRig(int graphs) {
    screen.area = &area;
    parameters->Item(1)->setScopeType(oTarnScope::kGraph);
    for (int i = 1; i < graphs; ++i)
      add(status.addData("Data" + std::to_string(i), ferrox3::kDouble)).setScopeType(oTarnScope::kGraph);
    start();
  }
  ~GraphsRig() { acq.AskStopAcqNow(); }  // before its area goes
  void resize(Twips width, Twips height) {
    area.width = width;
    area.height = height;
    acq.resized();
  }
  /// The frame's height in pixels and the range of the scroll bar, which together reach everything.
  std::string reach() {
    std::ostringstream text;
    text << area.frame().height() / kTwipsPerPixel << " by " << area.maximum;
    return text.str();
  }
  RecordingArea area;
};

TEST(GraphArea, StaysReachableHoweverOftenItIsResized) {
  GraphsRig rig(7);  // 40 pixels each at least
  EXPECT_EQ(rig.reach(), "280 by 80");
  rig.area.scroll = 80;
  rig.acq.scrolled();
  EXPECT_EQ(rig.area.frame().top(), -80 * kTwipsPerPixel);
  for (int i = 0; i < 3; ++i) {
    rig.resize(500, 150);
    EXPECT_EQ(rig.reach(), "280 by 130") << i;
    EXPECT_EQ(rig.area.frame().top(), 0);
    EXPECT_EQ(rig.area.scroll, 0);
  }
  rig.resize(500, 700);
  EXPECT_EQ(rig.reach(), "700 by 0") << "graphs share at once what a larger window offers";
  rig.resize(500, 150);
  EXPECT_EQ(rig.reach(), "280 by 130") << "and give it back";
}

TEST(GraphArea, WithoutADisplayIsOnlyPlaced) {
  GraphsRig rig(7);
  rig.acq.AskStopAcqNow();
  rig.resize(500, 150);
  EXPECT_EQ(rig.reach(), "280 by 80");
  EXPECT_EQ(rig.area.frame().width(), 500 * kTwipsPerPixel);
}

}  // namespace
}  // namespace tarnlog
