#include "ui/review/HandOn.h"

#include <QAction>
#include <QFileInfo>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "platform/base/TarnError.h"
#include "records/RecordNames.h"
#include "ui/common/Convert.h"
#include "ui/common/MenuItems.h"
#include "ui/common/NoticeBar.h"
#include "ui/review/PartWriter.h"

namespace tarnlog {

namespace {

constexpr int kPoll = 50;  ///< milliseconds
constexpr const char* kSubject = "handOn";

/// "folder/drive" of "folder/drive.txt".
QString withoutSuffix(const QString& path) {
  const QFileInfo file(path);
  return file.path() + "/" + file.completeBaseName();
}

}  // namespace

HandOn::HandOn(Desk desk, const ReviewEnvironment& environment, QObject* parent)
    : QObject(parent), desk_(std::move(desk)), environment_(environment) {
  add("savePicture", tr("Save &picture..."), QKeySequence::Save, &HandOn::savePicture);
  csv_ = add("saveCsv", {}, Qt::CTRL | Qt::Key_E, &HandOn::saveCsv);
  mf4_ = add("saveMf4", {}, Qt::CTRL | Qt::SHIFT | Qt::Key_E, &HandOn::saveMf4);
  onlyShown_ = new QAction(tr("Part: only the &data that are shown"), this);
  onlyShown_->setObjectName("onlyShown");
  onlyShown_->setCheckable(true);
  actions_ << onlyShown_;
  add("copyTable", tr("Copy &table of figures"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, &HandOn::copyFigures);
  showActions();
}

HandOn::~HandOn() = default;

QAction* HandOn::add(const char* name, const QString& text, const QKeySequence& keys, void (HandOn::*act)()) {
  auto* const action = new QAction(text, this);
  action->setObjectName(name);
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this,
          [this, act] { environment_.runWhenIdle(this, [this, act] { (this->*act)(); }); });
  actions_ << action;
  return action;
}

void HandOn::showActions() {
  const bool some = !desk_.scene.records().empty();
  for (QAction* const action : std::as_const(actions_)) action->setEnabled(some);
  namePart();
}

/// Of several records, one is saved.
void HandOn::namePart() {
  const std::vector<LookedAtRecord>& records = desk_.scene.records();
  const bool several = records.size() > 1;
  const QString name = several ? itemText(toQString(records[record()].name)) : QString();
  csv_->setText(several ? tr("Save part of %1 as &CSV...").arg(name) : tr("Save part as &CSV..."));
  mf4_->setText(several ? tr("Save part of %1 as &measurement file...").arg(name)
                        : tr("Save part as &measurement file..."));
}

/// That of the chosen curve.
std::size_t HandOn::record() const {
  const auto& chosen = desk_.scene.chosen();
  const std::vector<ReviewGraph>& graphs = desk_.scene.graphs();
  if (!chosen || chosen->graph >= graphs.size() || chosen->curve >= graphs[chosen->graph].curves.size())
    return 0;
  return graphs[chosen->graph].curves[chosen->curve].place.record;
}

void HandOn::savePicture() {
  if (desk_.scene.records().empty()) return;
  const QString record = toQString(desk_.scene.records().front().table->path);
  const auto path = environment_.dialogs.fileToSave(
      &desk_.window,
      {tr("Save picture"), withoutSuffix(record) + ".png",
       tr("Picture (*.png)") + "|*.png|" + tr("Drawing (*.svg)") + "|*.svg", ".png", "savePictureDialog"});
  if (!path) return;
  try {
    desk_.savePicture(*path);
    desk_.notices.showNews(kSubject, tr("Written: %1").arg(*path));
  } catch (const TarnError& error) {
    failed(toQString(error.description()));
  }
}

void HandOn::failed(const QString& what) {
  desk_.notices.showNotice(kSubject, tr("It could not be written: %1").arg(what));
}

std::optional<QString> HandOn::askFor(PartChoice::Format format, const QString& proposed) {
  const bool csv = format == PartChoice::Format::Csv;
  const QString suffix = csv ? ".csv" : ".mf4";
  const QString kind = csv ? tr("Table (*.csv)") + "|*.csv" : tr("Measurement file (*.mf4)") + "|*.mf4";
  return environment_.dialogs.fileToSave(
      &desk_.window, {tr("Save part of the record"), proposed + suffix, kind + "|" + tr("All files") + "|*.*",
                      suffix, "savePartDialog"});
}

PartChoice HandOn::partOf(std::size_t record) const {
  const LookedAtRecord& source = desk_.scene.records()[record];
  const TimeSpan span = desk_.scene.measured();
  PartChoice part = desk_.wholeOf(record);
  part.choice.from = span.from - source.offset;
  part.choice.till = span.till - source.offset;
  if (!onlyShown_->isChecked()) return part;
  for (const ReviewGraph& graph : desk_.scene.graphs())
    for (const ReviewCurve& curve : graph.curves)
      if (curve.place.record == record)
        part.choice.data.push_back(fullName(desk_.scene.column(curve.place).about));
  return part;
}

void HandOn::savePart(PartChoice::Format format) {
  if (desk_.scene.records().empty() || writer_ != nullptr) return;
  PartChoice part = partOf(record());
  if (onlyShown_->isChecked() && part.choice.data.empty())
    return failed(tr("no data of %1 are shown").arg(QFileInfo(toQString(part.input)).fileName()));
  const QString proposed = withoutSuffix(toQString(part.input)) + tr("_part", "behind a file's name");
  const auto path = askFor(format, proposed);
  if (!path) return;
  part.output = fromQString(*path);
  part.format = format;
  writer_ = std::make_unique<PartWriter>(std::move(part));
  poll_.start(kPoll, this);
  desk_.notices.showNews(kSubject, tr("Writing %1").arg(*path), {tr("Cancel"), [this] {
                                                                   if (writer_ != nullptr) writer_->cancel();
                                                                 }});
}

void HandOn::timerEvent(QTimerEvent* event) {
  if (event->timerId() != poll_.timerId()) return QObject::timerEvent(event);
  if (writer_ == nullptr || !writer_->done()) return;
  poll_.stop();
  tellWritten();
  writer_.reset();
}

void HandOn::tellWritten() {
  QString text = tr("Written: %1").arg(toQString(writer_->part().output));
  if (desk_.scene.records().size() > 1)
    text = tr("%1, the part of %2").arg(text, QFileInfo(toQString(writer_->part().input)).fileName());
  if (writer_->written())
    desk_.notices.showNews(kSubject, text);
  else if (writer_->failure().empty())
    desk_.notices.removeNotice(kSubject);
  else
    failed(toQString(writer_->failure()));
}

}  // namespace tarnlog
