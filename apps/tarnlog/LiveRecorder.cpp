#include "apps/tarnlog/LiveRecorder.h"

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "apps/common/BadInput.h"
#include "apps/common/RecordFolder.h"
#include "apps/common/Stylesheet.h"
#include "apps/tarnlog/AcqWindow.h"
#include "apps/tarnlog/SignalWatch.h"
#include "ui/common/Convert.h"
#include "ui/common/DesktopLocale.h"

namespace tarnlog {

namespace {

/// Clicks and keys included: the recorder takes them as wishes for the end of its tick.
void letEventsRun() { QCoreApplication::processEvents(); }

QString titleOf(const std::string& configuration) {
  return toQString(std::filesystem::path(configuration).filename().string()) + " - Tarnlog";
}

}  // namespace

LiveRecorder::LiveRecorder(LiveOptions options)
    : options_(std::move(options)),
      vehicle_(host::openVehicle(options_.vehicle, files_, desktopLocale(), linkClock_, letEventsRun)),
      configuration_(loadToRecord(files_, options_.config, vehicle_->session())) {
  if (options_.folder) useFolder(*configuration_.parameters, *options_.folder);
}

int LiveRecorder::run() {
  AcqWindow window({clock_, timer_, files_, desktopLocale(), kStylesheetUrl});
  window.setWindowTitle(titleOf(options_.config));
  files_.setWriteFailureHandler(
      [&](const std::string& path, const std::string& why) { noteFailure(window, path, why); });
  window.acq().setFileFinishedHandler([](const std::string& path) {
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
  });
  const SignalWatch signalWatch([&] { window.close(); }, [&] { window.acq().RecordUserEvent(); });
  window.show();
  start(window);
  const int code = QApplication::exec();
  files_.setWriteFailureHandler({});
  return failedPath_.empty() ? code : kFailed;
}

void LiveRecorder::start(AcqWindow& window) {
  window.acq().setSession(&vehicle_->session());
  window.acq().StartReadingData(configuration_.parameters);
  for (const std::string& line : lackingLines(configuration_)) {
    std::fprintf(stderr, "tarnlog: %s\n", line.c_str());
    window.acq().addLog(line);
  }
}

/// Said once for each file; the recorder goes on polling.
void LiveRecorder::noteFailure(AcqWindow& window, const std::string& path, const std::string& why) {
  if (path == failedPath_) return;
  failedPath_ = path;
  std::fprintf(stderr, "tarnlog: write failed: %s: %s\n", path.c_str(), why.c_str());
  window.acq().addLog("Write failed : " + path + " : " + why);
}

}  // namespace tarnlog
