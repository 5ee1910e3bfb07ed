#include "ui/review/FindBar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <cmath>

#include "ui/common/Convert.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/WheelGuard.h"
#include "ui/review/ReviewLook.h"
#include "ui/review/ReviewTexts.h"
#include "ui/review/SceneJump.h"
#include "ui/review/TypedNumber.h"

namespace tarnlog {

namespace {

constexpr int kLevelCharacters = 12;

}  // namespace

FindBar::FindBar(ReviewScene& scene, CurveColumns& columns, const UserLocale& locale, QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      columns_(columns),
      search_(scene, columns),
      locale_(locale),
      curve_(new ElidedLabel(this)),
      what_(new QComboBox(this)),
      level_(new QLineEdit(this)),
      answer_(new QLabel(this)) {
  createInputs();
  back_ = addButton("findBack", tr("Previous"), tr("The one before the readout (Shift+F3)"), true);
  next_ = addButton("findNext", tr("Next"), tr("The next one behind the readout (F3)"), false);
  answer_->setObjectName("findAnswer");
  answer_->setTextFormat(Qt::PlainText);
  answer_->setWordWrap(true);
  auto* const line = new QHBoxLayout;
  line->addWidget(what_);
  line->addWidget(level_);
  line->addWidget(back_);
  line->addWidget(next_);
  line->addStretch(1);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(curve_);
  column->addLayout(line);
  column->addWidget(answer_);
  column->addStretch(1);
  setFocusProxy(what_);
  showInputs();
}

void FindBar::createInputs() {
  curve_->setObjectName("findCurve");
  what_->setObjectName("findWhat");
  what_->setAccessibleName(tr("What to look for"));
  what_->addItem(tr("Rises to the level"), static_cast<int>(CurveSearch::What::Rising));
  what_->addItem(tr("Falls to the level"), static_cast<int>(CurveSearch::What::Falling));
  what_->addItem(tr("Value changes"), static_cast<int>(CurveSearch::What::Change));
  what_->addItem(tr("Largest step"), static_cast<int>(CurveSearch::What::LargestStep));
  changeByWheelOnlyWithFocus(*what_);
  connect(what_, &QComboBox::currentIndexChanged, this, &FindBar::showInputs);
  level_->setObjectName("findLevel");
  level_->setAccessibleName(tr("Level to look for"));
  level_->setPlaceholderText(tr("Level"));
  level_->setMaximumWidth(fontMetrics().averageCharWidth() * kLevelCharacters);
  connect(level_, &QLineEdit::textChanged, this, &FindBar::showInputs);
  connect(level_, &QLineEdit::returnPressed, this, [this] { find(false); });
}

QToolButton* FindBar::addButton(const char* name, const QString& text, const QString& toolTip, bool back) {
  auto* const button = new QToolButton(this);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(toolTip);
  button->setFocusPolicy(Qt::StrongFocus);
  connect(button, &QToolButton::clicked, this, [this, back] { find(back); });
  return button;
}

CurveSearch::What FindBar::what() const {
  return static_cast<CurveSearch::What>(what_->currentData().toInt());
}

void FindBar::enter() {
  QWidget* const first = level_->isVisible() ? static_cast<QWidget*>(level_) : what_;
  first->setFocus(Qt::ShortcutFocusReason);
  if (first == level_) level_->selectAll();
}

void FindBar::follow(unsigned changes) {
  if ((changes & (kChosenChanged | kGraphsChanged | kRecordsChanged)) != 0) showInputs();
  if ((changes & (kChosenChanged | kGraphsChanged)) != 0) answer_->clear();
}

void FindBar::showInputs() {
  const auto& chosen = scene_.chosen();
  const bool some = chosen && chosen->graph < scene_.graphs().size() &&
                    chosen->curve < scene_.graphs()[chosen->graph].curves.size();
  curve_->setText(
      some ? tr("Look in: %1").arg(curveName(scene_, scene_.graphs()[chosen->graph].curves[chosen->curve]))
           : tr("Click a curve, or a row of the figures, to look in it"));
  const bool needsLevel = what() == CurveSearch::What::Rising || what() == CurveSearch::What::Falling;
  level_->setVisible(needsLevel);
  const bool possible =
      some && search_.possible(what()) && (!needsLevel || typedNumber(level_->text()).has_value());
  next_->setEnabled(possible);
  next_->setText(what() == CurveSearch::What::LargestStep ? tr("Find") : tr("Next"));
  back_->setEnabled(possible);
  back_->setVisible(what() != CurveSearch::What::LargestStep);
}

bool FindBar::find(bool back) {
  showInputs();
  if (!next_->isEnabled()) {
    answer_->setText(tr("Choose a curve and type a level first."));
    return false;
  }
  const double level = typedNumber(level_->text()).value_or(0);
  const CurveSearch::Answer answer = search_.find(what(), level, back);
  if (answer.time) {
    jumpTo(scene_, *answer.time);
    scene_.bringChosen();
  }
  answer_->setText(answer.time ? answerText(answer) : noneText(answer, level, back));
  return answer.time.has_value();
}

QString FindBar::numberText(double number, const RecordFigures& figures) const {
  return toQString(figureText(number, figures.highest - figures.lowest, locale_));
}

QString FindBar::answerText(const CurveSearch::Answer& answer) const {
  const QString time = toQString(secondsText(*answer.time, locale_));
  if (std::isnan(answer.number)) return tr("At %1").arg(time);
  const auto& chosen = *scene_.chosen();  // it was searched
  const QString unit = curveUnit(scene_, scene_.graphs()[chosen.graph].curves[chosen.curve]);
  return tr("At %1: %2 %3").arg(time, numberText(answer.number, answer.figures), unit).trimmed();
}

/// And where it is instead, or why it is nowhere.
QString FindBar::noneText(const CurveSearch::Answer& answer, double level, bool back) const {
  QString missed = missedText(level, back);
  if (answer.other) {
    const QString time = toQString(secondsText(*answer.other, locale_));
    return missed + " " + (back ? tr("The first time is at %1.") : tr("The last time was at %1.")).arg(time);
  }
  const bool crosses = what() == CurveSearch::What::Rising || what() == CurveSearch::What::Falling;
  if (!crosses || answer.figures.count == 0) return missed;
  return missed + " " +
         tr("All of it lies between %1 and %2.")
             .arg(numberText(answer.figures.lowest, answer.figures),
                  numberText(answer.figures.highest, answer.figures));
}

QString FindBar::missedText(double level, bool back) const {
  const QString time = toQString(secondsText(search_.start(back), locale_));
  const QString aim = toQString(figureText(level, 0, locale_));
  switch (what()) {
    case CurveSearch::What::LargestStep:
      return tr("There are not two values here to step between.");
    case CurveSearch::What::Change:
      return (back ? tr("It does not change before %1.") : tr("It does not change after %1.")).arg(time);
    case CurveSearch::What::Rising:
      return (back ? tr("It does not rise to %1 before %2.") : tr("It does not rise to %1 after %2."))
          .arg(aim, time);
    case CurveSearch::What::Falling:
      break;
  }
  return (back ? tr("It does not fall to %1 before %2.") : tr("It does not fall to %1 after %2."))
      .arg(aim, time);
}

}  // namespace tarnlog
