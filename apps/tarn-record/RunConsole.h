#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "acquisition/TarnAcq.h"
#include "apps/common/NonWaitingStream.h"
#include "apps/tarn-record/ConsoleScreen.h"
#include "apps/tarn-record/LiveScreen.h"
#include "apps/tarn-record/LiveTable.h"
#include "apps/tarn-record/Loudness.h"
#include "apps/tarn-record/ProgressLine.h"
#include "platform/time/Clock.h"

namespace tarnlog::record {

/// What a run says on the standard streams, neither of which is waited for while recording: lines on standard
/// error, as loud as was asked for; paths of finished files on standard output, or on standard error where
/// standard output has something else; a table of values, if there is one.
class RunConsole {
 public:
  RunConsole(const Clock& clock, Loudness loudness, char decimalSeparator);

  void failure(std::string_view line) { progress_.print(line); }
  void note(std::string_view line);
  void detail(std::string_view line);
  /// Programs read it; what a terminal would act on is escaped there only.
  void path(const std::string& path);

  /// Standard output has something else than paths.
  void movePaths() { pathsMoved_ = true; }
  /// Draws this on the terminal that standard output is; it outlives this.
  void showTable(LiveTable& table);

  /// To be called often: goes on with what had to wait, and draws anew what is drawn.
  void show(const TarnAcq& acq, const ConsoleScreen& screen);
  /// All files are closed now: no path may be lost because its reader is slow. The log must not keep the
  /// program from ending.
  void finish();

 private:
  void drawTable(const TarnAcq& acq, const ConsoleScreen& screen);

  const Clock& clock_;
  Loudness loudness_;
  NonWaitingStream paths_;
  NonWaitingStream errors_;
  ProgressLine progress_;
  bool pathsMoved_ = false;
  LiveTable* table_ = nullptr;
  std::optional<LiveScreen> screen_;
};

}  // namespace tarnlog::record
