#include "ui/review/FiguresTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTimerEvent>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "platform/text/Numbers.h"
#include "ui/common/Convert.h"
#include "ui/review/ReviewTexts.h"
#include "ui/review/TypedNumber.h"

namespace tarnlog {

namespace {

constexpr int kPatience = 60;                  ///< milliseconds
constexpr std::int64_t kMedianStep = 1 << 18;  ///< rows
constexpr int kLevelCharacters = 10;
constexpr int kNameCharacters = 32;

}  // namespace

FiguresTable::FiguresTable(ReviewScene& scene, CurveColumns& columns, const UserLocale& locale,
                           QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      locale_(locale),
      rows_(scene, columns),
      model_(scene, rows_, locale_),
      cursors_(new QLabel(this)),
      level_(new QLineEdit(this)),
      table_(new QTreeView(this)) {
  createTable();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(makeHead());
  column->addWidget(table_, 1);
  setFocusProxy(table_);
  showCursors();
}

QWidget* FiguresTable::makeHead() {
  cursors_->setObjectName("reviewCursors");
  cursors_->setTextFormat(Qt::PlainText);
  cursors_->setWordWrap(true);
  level_->setObjectName("reviewLevel");
  level_->setAccessibleName(tr("Level for the time above it"));
  level_->setToolTip(tr("How long each curve is above this level, in the last column"));
  level_->setPlaceholderText(tr("Level"));
  level_->setClearButtonEnabled(true);
  level_->setMaximumWidth(fontMetrics().averageCharWidth() * (kLevelCharacters + 6));
  connect(level_, &QLineEdit::textChanged, this, &FiguresTable::takeLevel);
  auto* const caption = new QLabel(tr("Time &above"), this);
  caption->setBuddy(level_);
  auto* const copyAll = new QToolButton(this);
  copyAll->setObjectName("copyFigures");
  copyAll->setText(tr("Copy"));
  copyAll->setToolTip(tr("Copy the table for a spreadsheet (Ctrl+C)"));
  copyAll->setAccessibleName(tr("Copy the table of figures"));
  copyAll->setFocusPolicy(Qt::StrongFocus);
  connect(copyAll, &QToolButton::clicked, this, &FiguresTable::copy);
  auto* const head = new QWidget(this);
  auto* const line = new QHBoxLayout(head);
  line->setContentsMargins(4, 2, 4, 0);
  line->addWidget(cursors_, 1);
  line->addWidget(caption);
  line->addWidget(level_);
  line->addWidget(copyAll);
  return head;
}

void FiguresTable::createTable() {
  table_->setObjectName("reviewFigures");
  table_->setAccessibleName(tr("Figures of the curves"));
  table_->setModel(&model_);
  table_->setRootIsDecorated(false);
  table_->setUniformRowHeights(true);
  table_->setAlternatingRowColors(true);
  table_->setAllColumnsShowFocus(true);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->header()->setSectionsMovable(false);
  table_->header()->setStretchLastSection(false);
  table_->setColumnWidth(FiguresModel::kName, fontMetrics().averageCharWidth() * kNameCharacters);
  for (int column = FiguresModel::kName + 1; column < FiguresModel::kColumns; ++column)
    table_->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
  auto* const keys = new QShortcut(QKeySequence::Copy, table_);
  keys->setContext(Qt::WidgetShortcut);
  connect(keys, &QShortcut::activated, this, &FiguresTable::copy);
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& now) { chooseRow(now.row()); });
  connect(table_, &QTreeView::clicked, this, [this](const QModelIndex& at) { chooseRow(at.row()); });
}

/// The curve of this row is the one that is searched.
void FiguresTable::chooseRow(int row) {
  if (row < 0 || row >= static_cast<int>(rows_.rows().size())) return;
  const ReviewCurve& wanted = rows_.rows()[static_cast<std::size_t>(row)].curve;
  for (std::size_t g = 0; g < scene_.graphs().size(); ++g) {
    const std::vector<ReviewCurve>& curves = scene_.graphs()[g].curves;
    for (std::size_t c = 0; c < curves.size(); ++c)
      if (curves[c].place == wanted.place && curves[c].minus == wanted.minus) {
        scene_.choose(ReviewScene::Chosen{g, c});
        return scene_.bringChosen();
      }
  }
}

/// A record that grows, or a drag, changes something all the time.
void FiguresTable::follow(unsigned changes) {
  if (!rows_.fits()) return measure();
  constexpr unsigned kMeasuresNothing = kChosenChanged | kChosenWanted;
  if ((changes & ~kMeasuresNothing) != 0 && !pending_.isActive()) pending_.start(kPatience, this);
}

void FiguresTable::timerEvent(QTimerEvent* event) {
  if (event->timerId() == pending_.timerId()) {
    pending_.stop();
    measure();
  } else if (event->timerId() == medians_.timerId()) {
    if (!rows_.step(kMedianStep)) medians_.stop();
    model_.measured();
  } else {
    QWidget::timerEvent(event);
  }
}

void FiguresTable::measure() {
  rows_.refresh();
  model_.refresh();
  showCursors();
  medians_.start(0, this);
}

/// Columns that have nothing to tell take no room.
void FiguresTable::showColumns() {
  const bool both = rows_.difference().has_value();
  table_->setColumnHidden(FiguresModel::kAtA, !rows_.timeA());
  table_->setColumnHidden(FiguresModel::kAtB, !rows_.timeB());
  table_->setColumnHidden(FiguresModel::kChange, !both);
  table_->setColumnHidden(FiguresModel::kSlope, !both);
  table_->setColumnHidden(FiguresModel::kAbove, !rows_.level());
}

void FiguresTable::showCursors() {
  showColumns();
  const auto time = [&](double seconds) { return toQString(secondsText(seconds, locale_)); };
  if (scene_.records().empty()) return cursors_->setText({});
  const auto a = rows_.timeA();
  const auto b = rows_.timeB();
  const TimeSpan span = scene_.measured();
  QStringList texts;
  if (a) texts << tr("A: %1").arg(time(*a));
  if (b) texts << tr("B: %1").arg(time(*b));
  if (a && b)
    texts << tr("B - A: %1").arg(time(*b - *a));
  else
    texts << tr("Measured: what is seen, %1 to %2").arg(time(span.from), time(span.till));
  cursors_->setText(texts.join("    "));
}

void FiguresTable::takeLevel() {
  rows_.setLevel(typedNumber(level_->text()));
  measure();
}

void FiguresTable::copy() { QGuiApplication::clipboard()->setText(model_.copied()); }

}  // namespace tarnlog
