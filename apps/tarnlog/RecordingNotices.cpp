#include "apps/tarnlog/RecordingNotices.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/plotting/TimeGrid.h"
#include "ui/common/Convert.h"
#include "ui/common/NoticeBar.h"

namespace tarnlog {

RecordingNotices::RecordingNotices(NoticeBar& bar, std::function<void()> openParameters,
                                   std::function<void(const std::string& path)> lookAt)
    : bar_(bar), openParameters_(std::move(openParameters)), lookAt_(std::move(lookAt)) {}

/// One message a file: its end takes the place of its beginning. A measurement file gets its answers in
/// blocks.
void RecordingNotices::writeTrouble(const WriteTrouble& trouble) {
  using Kind = WriteTrouble::Kind;
  const QString path = toQString(trouble.path);
  const bool blocks = path.endsWith(".mf4");
  QString text;
  if (trouble.kind == Kind::Begun) {
    text = blocks ? tr("Measurement data are lost, the file cannot be written: %1: %2")
                  : tr("Rows are lost, the file cannot be written: %1: %2");
  } else if (trouble.kind == Kind::CutShort) {
    text = tr("The file was cut short: %1: %2");
  } else if (trouble.kind == Kind::NotSynced) {
    text = blocks ? tr("A power cut may cost measurement data, the file could not be synced: %1: %2")
                  : tr("A power cut may cost rows, the file could not be synced: %1: %2");
  } else if (trouble.closed) {
    text = blocks ? tr("The file was closed while it could not be written: %1: lost blocks: %2")
                  : tr("The file was closed while it could not be written: %1: lost rows: %2");
  } else {
    text = blocks ? tr("The file can be written again: %1: lost blocks: %2")
                  : tr("The file can be written again: %1: lost rows: %2");
  }
  const bool ended = trouble.kind == Kind::Ended;
  bar_.showNotice("write " + path,
                  text.arg(path, ended ? QString::number(trouble.lostInFile) : toQString(trouble.why)));
}

void RecordingNotices::openFailed(const std::string& why) {
  bar_.showNotice("open", tr("Nothing is recorded: %1").arg(toQString(why)), {},
                  {tr("Recording parameters"), openParameters_});
}

void RecordingNotices::measurementFailed(const std::string& why) {
  bar_.showNotice("measurement", tr("Measurement data are missing: %1").arg(toQString(why)));
}

void RecordingNotices::publishing(const std::string& text, bool trouble) {
  const QString shown = tr("Publishing: %1").arg(toQString(text));
  trouble ? bar_.showNotice("publish", shown) : bar_.showNews("publish", shown);
}

/// Without a sign when nothing is missing.
void RecordingNotices::recorded(const std::string& path, const Quality& quality, int data) {
  const QString name = QFileInfo(toQString(path)).fileName();
  const double seconds = std::round(static_cast<double>(quality.till - quality.zero) / 1e6);
  const QString length = toQString(durationText(std::max(seconds, 0.0) * 1000, '.'));
  QString text = data == 1 ? tr("Recorded %1, 1 datum: %2").arg(length, name)
                           : tr("Recorded %1, %2 data: %3").arg(length, QString::number(data), name);
  if (quality.counts.expected() != 0) text += "\n" + toQString(toldQuality(quality));
  const NoticeBar::Action look{tr("Look at it"), [this, path] { lookAt_(path); }};
  if (quality.counts.lost == 0 && quality.counts.gaps == 0)
    bar_.showNews("quality", text, look);
  else
    bar_.showNotice("quality", text, {}, look);
}

}  // namespace tarnlog
