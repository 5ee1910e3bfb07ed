#include "apps/tarnlog/RecordingNotices.h"

#include <QFileInfo>
#include <utility>

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

void RecordingNotices::recorded(const std::string& path, const std::string& quality) {
  const QString name = QFileInfo(toQString(path)).fileName();
  bar_.showNotice("quality", tr("Recorded: %1: %2").arg(name, toQString(quality)), {},
                  {tr("Look at it"), [this, path] { lookAt_(path); }});
}

}  // namespace tarnlog
