#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "acquisition/SampleSink.h"
#include "apps/tarn-record/LiveValues.h"
#include "platform/time/Clock.h"

namespace tarnlog::record {

/// The values as a table for a terminal: what is on it, and when it is drawn anew.
class LiveTable : public SampleSink {
 public:
  explicit LiveTable(const Clock& clock) : clock_(clock) {}

  void begin(const SampleBeginning& beginning) override;
  void answer(const SampleAnswer& answer) override;

  /// A value has changed that was not drawn, or a second has gone by, and the last drawing is not newer than
  /// a tenth of a second.
  bool due() const;
  /// It was erased.
  void drawAgain() { changed_ = true; }
  /// The lines, for a terminal of this size, of which it was told that they are drawn now. Where there is
  /// room beside each other, there are several columns; what has no room is counted in the last line.
  std::vector<std::string> draw(std::size_t width, std::size_t height);

 private:
  struct Widths {
    std::size_t name = 0;
    std::size_t text = 0;
    std::size_t unit = 0;
    std::size_t all() const { return name + 2 + text + (unit == 0 ? 0 : 1 + unit); }
  };
  Widths widths();
  static std::string cell(const LiveValues::Row& row, const Widths& widths);

  const Clock& clock_;
  LiveValues values_;
  std::size_t widestText_ = 0;  ///< so far: columns that go to and fro cannot be read
  bool changed_ = false;
  bool drawn_ = false;
  Milliseconds drawnAt_ = 0;
};

}  // namespace tarnlog::record
