#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "acquisition/TarnAcq.h"
#include "platform/settings/SettingsStore.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RecordingScreen.h"

namespace tarnlog::test {

inline std::vector<std::string> words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> found;
  for (std::string word; stream >> word;) found.push_back(word);
  return found;
}

/// The lines of a text file behind its header, with "|" for TAB.
inline std::vector<std::string> rowsOf(const std::string& file, std::size_t headerLines = 3) {
  std::vector<std::string> lines;
  std::istringstream text(file);
  for (std::string line; std::getline(text, line);) {
    line.pop_back();
    std::replace(line.begin(), line.end(), '\t', '|');
    if (headerLines == 0) lines.push_back(line);
    if (headerLines > 0) --headerLines;
  }
  return lines;
}

/// Time and files of a recorder, in the test's hands.
struct SteppedParts {
  explicit SteppedParts(Milliseconds start = 1'000'000) : clock(start) {}

  void ticks(int count) {
    for (int i = 0; i < count; ++i) {
      timer.fire();
      linkClock.step(std::chrono::milliseconds(51));
    }
  }
  /// A start takes some 300 ms until values are polled.
  void tickUntil(const TarnAcq& acq, TarnAcq::State state) {
    for (int i = 0; i < 20 && acq.AcqState() != state; ++i) ticks(1);
  }

  SteppedClock clock;
  ManualLinkClock linkClock{&clock};
  ManualTimer timer;
  MemoryFileSystem files;
};

/// All that a recorder works with.
struct RecorderParts : SteppedParts {
  using SteppedParts::SteppedParts;

  void hear(TarnAcq& acq) {
    acq.setAcqStoppedHandler([this] { ++stopped; });
    acq.setFileFinishedHandler([this](const std::string& path) { finished.push_back(path); });
  }

  RecordingScreen screen;
  MemorySettingsStore settings;
  int stopped = 0;                    ///< how often AcqStopped came
  std::vector<std::string> finished;  ///< files that were closed
};

}  // namespace tarnlog::test
