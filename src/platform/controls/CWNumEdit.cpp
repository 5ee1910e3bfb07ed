#include "platform/controls/CWNumEdit.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/controls/Readable.h"

namespace tarnlog {

namespace {

constexpr double kMostInFull = 1e15;  ///< beyond, digits before the separator would be invented
constexpr double kRefusedContrast = 4.5;

/// A number, or what more typing can make one.
bool beginsNumber(const QString& text, const QLocale& in, bool whole) {
  const auto literally = [](const QString& sign) { return QRegularExpression::escape(sign); };
  const QString sign = QStringLiteral("(-|\\+|%1)?").arg(literally(in.negativeSign()));
  const QString digits = sign + QStringLiteral("\\d*");
  const QString rest = QStringLiteral("(%1\\d*)?(\\d%2%3\\d*)?")
                           .arg(literally(in.decimalPoint()), literally(in.exponential()), sign);
  const QString pattern = QRegularExpression::anchoredPattern(whole ? digits : digits + rest);
  return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption |
                                         QRegularExpression::UseUnicodePropertiesOption)
      .match(text)
      .hasMatch();
}

/// 1,500 may be meant for fifteen hundred; 1,5 and 0,500 and 1234,500 cannot.
bool mayBeGrouped(const QString& number) {
  static const QRegularExpression grouped(QStringLiteral("^\\D?[1-9]\\d{0,2}[.,]\\d{3}(?!\\d)"));
  return grouped.match(number).hasMatch();
}

}  // namespace

CWNumEdit::CWNumEdit(QWidget* parent)
    : QDoubleSpinBox(parent),
      refusal_(lineEdit()->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                     QLineEdit::TrailingPosition)) {
  setDecimals(12);
  setRange(-1e9, 1e9);
  setKeyboardTracking(false);
  refusal_->setVisible(false);
  connect(lineEdit(), &QLineEdit::textEdited, this, &CWNumEdit::beginEntry);
  connect(this, &QAbstractSpinBox::editingFinished, this, &CWNumEdit::finishEntry);
}

QLocale CWNumEdit::plainLocale() const {
  QLocale plain = locale();
  plain.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
  return plain;
}

QString CWNumEdit::textFromValue(double value) const {
  const char format = std::abs(value) < kMostInFull ? 'f' : 'g';
  return plainLocale().toString(value == 0 ? 0 : value, format, QLocale::FloatingPointShortest);
}

QString CWNumEdit::bare(QString text) const {
  if (text.startsWith(prefix())) text.remove(0, prefix().size());
  if (text.endsWith(suffix())) text.chop(suffix().size());
  return text;
}

/// With the locale's decimal separator, where there is one that can be taken for it.
QString CWNumEdit::withSeparator(QString number) const {
  const QString own = plainLocale().decimalPoint();
  const qsizetype foreign = number.count(QLatin1Char('.')) + number.count(QLatin1Char(','));
  if (number.contains(own) || foreign != 1 || mayBeGrouped(number)) return number;
  return number.replace(number.contains(QLatin1Char('.')) ? QLatin1Char('.') : QLatin1Char(','), own);
}

std::optional<double> CWNumEdit::entered(const QString& text) const {
  bool complete = false;
  const double number = plainLocale().toDouble(withSeparator(bare(text).trimmed()), &complete);
  const bool fits = std::isfinite(number) && (decimals() > 0 || number == std::trunc(number));
  return complete && fits ? std::optional(number) : std::nullopt;
}

bool CWNumEdit::mayBecomeNumber(const QString& text) const {
  return entered(text) || beginsNumber(withSeparator(bare(text).trimmed()), plainLocale(), decimals() == 0);
}

double CWNumEdit::valueFromText(const QString& text) const { return entered(text).value_or(value()); }

/// No key is refused: without it, the digits around would make another number.
QValidator::State CWNumEdit::validate(QString& text, int& /*position*/) const {
  text = prefix() + bare(text) + suffix();
  const std::optional<double> number = entered(text);
  const bool within = number && *number >= minimum() && *number <= maximum();
  return within ? QValidator::Acceptable : QValidator::Intermediate;
}

void CWNumEdit::fixup(QString& text) const {
  const double number = entered(text).value_or(typing_ ? before_ : value());
  text = prefix() + textFromValue(std::clamp(number, minimum(), maximum())) + suffix();
}

/// At the first key: what is typed may count at once, and be refused as a whole later.
void CWNumEdit::beginEntry() {
  if (!std::exchange(typing_, true)) before_ = value();
  mark(!mayBecomeNumber(lineEdit()->text()));
}

void CWNumEdit::finishEntry() {
  interpretText();
  typing_ = false;
  mark(false);
}

bool CWNumEdit::refuses() const { return refusal_->isVisible(); }

void CWNumEdit::mark(bool refused) {
  if (refused == refuses()) return;
  refusal_->setVisible(refused);
  const QString why = decimals() == 0 ? tr("This is no whole number: the value stays as it was.")
                                      : tr("This is no number: the value stays as it was.");
  refusal_->setToolTip(why);
  setAccessibleDescription(refused ? why : QString());
  QPalette colours;
  const QColor red(0xC0, 0x1C, 0x28);
  if (refused)
    colours.setColor(QPalette::Text, readable(red, palette().color(QPalette::Base), kRefusedContrast));
  lineEdit()->setPalette(colours);
}

void CWNumEdit::keyPressEvent(QKeyEvent* event) {
  const bool up = event->key() == Qt::Key_PageUp;
  if (!up && event->key() != Qt::Key_PageDown) return QDoubleSpinBox::keyPressEvent(event);
  if (!isReadOnly()) moveBy(up ? fastStep_ : -fastStep_);
}

void CWNumEdit::setStepRange(double lowest, double highest) {
  lowestStep_ = lowest;
  highestStep_ = highest;
}

void CWNumEdit::stepBy(int steps) { moveBy(steps * singleStep()); }

void CWNumEdit::moveBy(double difference) {
  finishEntry();
  const bool inside = value() >= lowestStep_ && value() <= highestStep_;
  const double moved = value() + difference;
  setValue(inside ? std::clamp(moved, lowestStep_, highestStep_) : moved);
  selectAll();
}

}  // namespace tarnlog
