#include "apps/tarnlog/UnfinishedOffer.h"

#include <QStringList>
#include <exception>
#include <utility>

#include "platform/base/TarnError.h"
#include "ui/common/BusyPointer.h"
#include "ui/common/Convert.h"
#include "ui/common/NoticeBar.h"

namespace tarnlog {

namespace {

constexpr const char* kSubject = "unfinished";

}  // namespace

UnfinishedOffer::UnfinishedOffer(UnfinishedRecords records, NoticeBar& notices, std::function<bool()> busy)
    : records_(std::move(records)), notices_(notices), busy_(std::move(busy)) {}

void UnfinishedOffer::lookInto(const std::string& folder, bool ofVehicles) {
  if (!records_.find || !looked_.insert(folder).second) return;
  std::vector<std::string> paths;
  skipOnFailure([&] { paths = records_.find(folder, ofVehicles); });
  if (paths.empty()) return;
  found_.insert(found_.end(), paths.begin(), paths.end());
  show();
}

void UnfinishedOffer::show(const QString& hint) {
  QStringList paths;
  for (const std::string& path : found_) paths += toQString(path);
  const QString text = paths.size() == 1
                           ? tr("A record was not closed, its recorder was killed: %1").arg(paths.front())
                           : tr("%1 records were not closed, their recorder was killed").arg(paths.size());
  notices_.showNotice(kSubject, hint.isEmpty() ? text : text + " - " + hint, paths,
                      {paths.size() == 1 ? tr("Close it") : tr("Close them"), [this] { close(); }});
}

void UnfinishedOffer::close() {
  if (busy_()) return show(tr("end the acquisition first"));
  const BusyPointer pointer;
  QStringList done;
  for (const std::string& path : std::exchange(found_, {})) {
    try {
      done += toQString(records_.close(path)).trimmed();
    } catch (const std::exception& error) {
      done += toQString(path + ": " + error.what());
    }
  }
  notices_.showNotice(kSubject, done.size() == 1 ? done.front() : tr("Records closed: %1").arg(done.size()),
                      done);
}

}  // namespace tarnlog
