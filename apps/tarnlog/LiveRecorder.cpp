#include "apps/tarnlog/LiveRecorder.h"

#include <unistd.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QTimer>
#include <QUrl>
#include <utility>
#include <vector>

#include "acquisition/TarnAcq.h"
#include "apps/common/BadInput.h"
#include "apps/common/RecordFolder.h"
#include "apps/common/RecordPrefix.h"
#include "apps/common/RecordRepair.h"
#include "apps/common/Stylesheet.h"
#include "apps/common/TerminalText.h"
#include "apps/common/UnfinishedRecords.h"
#include "apps/common/WriteTroubleText.h"
#include "apps/tarnlog/FileKinds.h"
#include "apps/tarnlog/GuideFiles.h"
#include "apps/tarnlog/RecorderWindow.h"
#include "apps/tarnlog/SignalWatch.h"
#include "config/oTarnParameters.h"
#include "platform/text/Told.h"
#include "samples/Measurement.h"
#include "ui/acquisition/UserWords.h"
#include "ui/common/Convert.h"
#include "ui/common/DesktopLocale.h"
#include "ui/main/TarnMain.h"

namespace tarnlog {

namespace {

/// Clicks and keys included: the recorder takes them as wishes for the end of its tick.
void letEventsRun() { QCoreApplication::processEvents(); }

/// Where files of the program may be: installed with it, or in the sources that it was built from.
QStringList foldersOf(const char* installed, const char* inSources) {
  QStringList folders{QApplication::applicationDirPath() + "/" + installed};
  const QString sources = QStringLiteral(TARNLOG_SOURCE_FOLDER);
  if (!sources.isEmpty()) folders += sources + "/" + inSources;
  return folders;
}

std::vector<std::string> exampleVehicles() {
  for (const QString& folder : foldersOf(TARNLOG_EXAMPLES, "examples")) {
    std::vector<std::string> paths;
    for (const QFileInfo& file : QDir(folder).entryInfoList({"*.vehicle.json"}, QDir::Files, QDir::Name))
      paths.push_back(fromQString(file.canonicalFilePath()));
    if (!paths.empty()) return paths;
  }
  return {};
}

/// With the program that the desktop has for such files.
void showOutside(const std::string& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(toQString(path))); }

Guide guideOfProgram(const FileSystem& files) {
  for (const QString& folder : foldersOf(TARNLOG_GUIDE, "docs")) {
    Guide guide = guideIn(fromQString(QDir::cleanPath(folder)), files, showOutside);
    if (guide.open) return guide;
  }
  return {};
}

/// In a folder and, where each vehicle has one of its own, in those below it.
std::vector<std::string> unfinishedIn(const std::string& folder, bool ofVehicles) {
  std::vector<std::string> paths = unfinishedRecords(folder);
  if (!ofVehicles) return paths;
  for (const QFileInfo& below : QDir(toQString(folder)).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
    for (std::string& path : unfinishedRecords(fromQString(below.filePath())))
      paths.push_back(std::move(path));
  return paths;
}

}  // namespace

LiveRecorder::LiveRecorder(LiveOptions options) : options_(std::move(options)) {}

WindowEnvironment LiveRecorder::environment() {
  const auto open = [this](const CarConnection& car, const LinkHooks& hooks) {
    host::LinkOptions link = options_.link;
    // Whoever chooses a link wants to know whether it works.
    link.openAtOnce = !car.link.empty();
    if (link.openAtOnce) link.url = car.link;
    // Until somebody records, others may use the adapter.
    link.keepOpen = !options_.config.empty() && !link.openAtOnce;
    // An attempt that failed keeps its trace.
    if (!link.trace.empty() && ++attempts_ > 1) link.trace += "_" + std::to_string(attempts_);
    link.stopAsked = hooks.stopAsked;
    link.phase = hooks.phase;
    const auto wait = [whileWaiting = hooks.whileWaiting] {
      letEventsRun();
      whileWaiting();
    };
    auto vehicle = host::openVehicle(car.vehicle, files_, desktopLocale(), linkClock_, wait, link);
    options_.link.trace.clear();  // a trace is of one vehicle, and so are names of requests
    options_.link.intervals.clear();
    return vehicle;
  };
  return {{clock_,
           timer_,
           files_,
           folderSettings_,
           dialogs_,
           desktopLocale(),
           kStylesheetUrl,
           &endQuestion_,
           [this](const std::string& file) { refusePrefixOutside(files_, file); },
           guideOfProgram(files_),
           {&publishing_},
           [this] { return publishing_.isWanted(); },
           TARNLOG_VERSION},
          open,
          options_.link.url,
          exampleVehicles(),
          [] { return findCarDevices(); },
          options_.folderPerVehicle,
          folderOfVehicle,
          {unfinishedIn, repairRecord},
          [this](const std::string& text) { say(text); }};
}

int LiveRecorder::run() {
  if (options_.folder) makeFolder(*options_.folder);
  RecorderWindow window(environment());
  TarnAcq& acq = window.recorder().ctlTarnAcq();
  files_.setWriteTroubleHandler([&](const WriteTrouble& trouble) {
    noteFailure(textOf(trouble));
    window.recordings().writeTrouble(trouble);
  });
  Measurement& measurement = window.recorder().measurement();
  measurement.quality().setRecordingEnded([&](const std::string& path, const Quality& quality) {
    say(path + ": " + toldQuality(quality));
    window.recordings().recorded(path, quality, acq.Parameters()->Count());
  });
  publishing_.follow(measurement.files());
  publishing_.setTell([&](const std::string& text, bool trouble) {
    say(Told::tr("publish: {}", text));
    window.recordings().publishing(text, trouble);
  });
  acq.setOpenFailedHandler([&](OpenFailure failure, const std::string& reason) {
    const std::string text = fromQString(openFailureInUsersWords(failure, reason));
    noteFailure(text);
    window.recordings().openFailed(text);
  });
  const auto printPath = [this](const std::string& path) {
    paths_.write((::isatty(STDOUT_FILENO) != 0 ? printableLine(path) : path) + "\n");
  };
  acq.setFileFinishedHandler(printPath);
  measurement.files().setFinished(printPath);
  measurement.files().setFailed([&](const std::string& why) {
    noteFailure(why);
    window.recordings().measurementFailed(why);
  });
  QTimer printing;
  QObject::connect(&printing, &QTimer::timeout, [this] {
    files_.tellSyncTroubles();
    publishing_.tellNews();
    paths_.flush();
    errors_.flush();
  });
  printing.start(1000);
  const SignalWatch signalWatch([&] { window.endAndClose(); }, [&] { acq.RecordUserEvent(); });
  // Who comes for a record is not asked for a vehicle.
  const bool onlyRecords =
      !options_.files.empty() && sortedByKind(options_.files, files_).records == options_.files;
  const bool recorderWanted = !onlyRecords || !options_.vehicle.empty() || !options_.config.empty();
  if (recorderWanted) window.show();
  // From within the loop, which a box about them must not keep from ending.
  QTimer::singleShot(0, &window, [&] {
    if (!options_.config.empty()) window.acquire(toQString(options_.config), options_.folder);
    if (!options_.vehicle.empty()) window.openVehicle(toQString(options_.vehicle));
    if (!options_.files.empty()) window.openFiles(options_.files);
  });
  const int code = QApplication::exec();
  publishing_.setTell([this](const std::string& text, bool) { say(Told::tr("publish: {}", text)); });
  publishing_.finish();
  files_.finishSyncing();
  files_.setWriteTroubleHandler({});
  measurement.quality().setRecordingEnded({});
  measurement.files().setFailed({});
  paths_.wait();
  return failed_ ? kFailed : code;
}

/// The recorder goes on polling.
void LiveRecorder::noteFailure(const std::string& text) {
  failed_ = true;
  say(text);
}

void LiveRecorder::say(const std::string& text) { errors_.write(printableLine("tarnlog: " + text) + "\n"); }

}  // namespace tarnlog
