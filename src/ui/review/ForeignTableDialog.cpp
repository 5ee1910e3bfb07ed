#include "ui/review/ForeignTableDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/base/TarnError.h"
#include "ui/common/Convert.h"
#include "ui/common/Notice.h"
#include "ui/common/WheelGuard.h"
#include "ui/review/LastForeignChoice.h"

namespace tarnlog {

namespace {

constexpr int kMostHeaders = 50;
constexpr int kPreviewLines = 10;
constexpr int kMostColumns = 200;  ///< of the preview
constexpr int kNoTime = -1;

void choose(QComboBox& box, const QVariant& data) { box.setCurrentIndex(std::max(box.findData(data), 0)); }

}  // namespace

ForeignTableDialog::ForeignTableDialog(const std::string& path, SettingsStore* settings, QWidget* parent)
    : QDialog(parent),
      file_(path),
      settings_(settings),
      preview_(new QTableWidget(this)),
      trouble_(new Notice(this)) {
  setObjectName("ForeignTableDialog");
  setWindowTitle(tr("A table of another program: %1").arg(QFileInfo(toQString(path)).fileName()));
  ForeignTableChoice begin = lookAtForeignTable(file_).choice;
  skipOnFailure([&] {
    if (settings_ != nullptr) begin = lastForeignChoice(*settings_, file_).value_or(begin);
  });
  lines_ = foreignLines(file_, begin);
  createInputs(begin);
  arrange();
  fillTimeColumns();
  choose(*time_, begin.timeColumn ? static_cast<int>(*begin.timeColumn) : kNoTime);
  showPreview();
  resize(640, 520);
}

QComboBox* ForeignTableDialog::addChoice(const char* name, const QString& accessibleName) {
  auto* const box = new QComboBox(this);
  box->setObjectName(name);
  box->setAccessibleName(accessibleName);
  changeByWheelOnlyWithFocus(*box);
  return box;
}

void ForeignTableDialog::createInputs(const ForeignTableChoice& proposed) {
  separator_ = addChoice("foreignSeparator", tr("What stands between the cells"));
  separator_->addItem(tr("Comma"), QChar(','));
  separator_->addItem(tr("Semicolon"), QChar(';'));
  separator_->addItem(tr("Tab"), QChar('\t'));
  separator_->addItem(tr("Bar |"), QChar('|'));
  separator_->addItem(tr("Blank"), QChar(' '));
  choose(*separator_, QChar(proposed.separator));
  decimal_ = addChoice("foreignDecimal", tr("Decimal separator"));
  decimal_->addItem(tr("Point: 12.5"), QChar('.'));
  decimal_->addItem(tr("Comma: 12,5"), QChar(','));
  choose(*decimal_, QChar(proposed.decimal));
  coding_ = addChoice("foreignCoding", tr("Character set"));
  coding_->addItem("UTF-8", true);
  coding_->addItem("windows-1252", false);
  choose(*coding_, proposed.utf8);
  headers_ = new QSpinBox(this);
  headers_->setObjectName("foreignHeaders");
  headers_->setAccessibleName(tr("Lines before the rows"));
  headers_->setRange(0, kMostHeaders);
  headers_->setValue(static_cast<int>(proposed.headerLines));
  changeByWheelOnlyWithFocus(*headers_);
  time_ = addChoice("foreignTime", tr("Column with the time"));
  unit_ = addChoice("foreignUnit", tr("Unit of the times"));
  unit_->addItem(tr("seconds"), 1.0);
  unit_->addItem(tr("milliseconds"), 1e-3);
  unit_->addItem(tr("microseconds"), 1e-6);
  unit_->addItem(tr("nanoseconds"), 1e-9);
  unit_->addItem(tr("minutes"), 60.0);
  unit_->addItem(tr("hours"), 3600.0);
  unit_->addItem(tr("days"), 86400.0);
  choose(*unit_, proposed.timeUnit);
  for (QComboBox* const box : {separator_, decimal_, coding_})
    connect(box, &QComboBox::currentIndexChanged, this, &ForeignTableDialog::read);
  connect(headers_, &QSpinBox::valueChanged, this, &ForeignTableDialog::read);
  for (QComboBox* const box : {time_, unit_})
    connect(box, &QComboBox::currentIndexChanged, this, &ForeignTableDialog::showPreview);
}

void ForeignTableDialog::arrange() {
  auto* const form = new QFormLayout;
  form->addRow(tr("&Separator"), separator_);
  form->addRow(tr("&Decimal separator"), decimal_);
  form->addRow(tr("&Header lines"), headers_);
  form->addRow(tr("&Time column"), time_);
  form->addRow(tr("&Unit of times"), unit_);
  form->addRow(tr("&Character set"), coding_);
  preview_->setObjectName("foreignPreview");
  preview_->setAccessibleName(tr("The first lines as they are read"));
  preview_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  preview_->setTabKeyNavigation(false);
  preview_->setSelectionMode(QAbstractItemView::NoSelection);
  preview_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  preview_->verticalHeader()->hide();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  accept_ = buttons->addButton(tr("&Look at it"), QDialogButtonBox::AcceptRole);
  accept_->setObjectName("foreignAccept");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const column = new QVBoxLayout(this);
  auto* const what = new QLabel(tr("This file is no record of this program. Say how to read it:"), this);
  what->setWordWrap(true);
  column->addWidget(what);
  column->addLayout(form);
  column->addWidget(preview_, 1);
  column->addWidget(trouble_);
  column->addWidget(buttons);
}

ForeignTableChoice ForeignTableDialog::choice() const {
  ForeignTableChoice choice;
  choice.separator = separator_->currentData().toChar().toLatin1();
  choice.decimal = decimal_->currentData().toChar().toLatin1();
  choice.headerLines = static_cast<std::size_t>(headers_->value());
  const int time = time_->currentData().toInt();
  if (time_->count() > 0 && time != kNoTime) choice.timeColumn = static_cast<std::size_t>(time);
  choice.timeUnit = unit_->currentData().toDouble();
  choice.utf8 = coding_->currentData().toBool();
  return choice;
}

void ForeignTableDialog::accept() {
  skipOnFailure([this] {
    if (settings_ != nullptr) keepForeignChoice(*settings_, choice());
  });
  QDialog::accept();
}

void ForeignTableDialog::read() {
  lines_ = foreignLines(file_, choice());
  fillTimeColumns();
  showPreview();
}

std::size_t ForeignTableDialog::columns() const {
  std::size_t most = 0;
  for (const auto& line : lines_) most = std::max(most, line.size());
  return std::min<std::size_t>(most, kMostColumns);
}

/// The columns by their names, where the last header line has some.
void ForeignTableDialog::fillTimeColumns() {
  const QSignalBlocker silent(time_);
  const int chosen = time_->count() == 0 ? kNoTime : time_->currentData().toInt();
  time_->clear();
  time_->addItem(tr("None: rows are a second apart"), kNoTime);
  const auto headers = static_cast<std::size_t>(headers_->value());
  for (std::size_t column = 0; column < columns(); ++column) {
    QString name = tr("Column %1").arg(column + 1);
    if (headers > 0 && headers <= lines_.size() && column < lines_[headers - 1].size())
      name += ": " + toQString(lines_[headers - 1][column]);
    time_->addItem(name, static_cast<int>(column));
  }
  choose(*time_, chosen);
}

/// Header lines in bold, the time column shaded.
void ForeignTableDialog::showPreview() {
  const int rows = std::min(static_cast<int>(lines_.size()), kPreviewLines + headers_->value());
  preview_->clear();
  preview_->setRowCount(rows);
  preview_->setColumnCount(static_cast<int>(columns()));
  for (int row = 0; row < rows; ++row) {
    const std::vector<std::string>& line = lines_[static_cast<std::size_t>(row)];
    for (int column = 0; column < preview_->columnCount(); ++column) {
      const auto cell = static_cast<std::size_t>(column);
      auto* const item = new QTableWidgetItem(cell < line.size() ? toQString(line[cell]) : QString());
      QFont font = preview_->font();
      font.setBold(row < headers_->value());
      item->setFont(font);
      if (column == time_->currentData().toInt()) item->setBackground(palette().alternateBase());
      preview_->setItem(row, column, item);
    }
  }
  unit_->setEnabled(time_->currentData().toInt() != kNoTime);
  showTrouble();
}

void ForeignTableDialog::showTrouble() {
  const ForeignTableChoice now = choice();
  QString trouble;
  if (lines_.size() <= now.headerLines) {
    trouble = tr("There are no rows behind the header lines.");
  } else if (now.timeColumn) {
    const std::vector<std::string>& first = lines_[now.headerLines];
    const std::string cell = *now.timeColumn < first.size() ? first[*now.timeColumn] : std::string();
    if (!foreignTime(cell, now))
      trouble = tr("\"%1\" is no time: choose another column, separator or number of header lines.")
                    .arg(toQString(cell));
  }
  trouble_->setText(trouble);
  accept_->setEnabled(trouble.isEmpty());
}

}  // namespace tarnlog
