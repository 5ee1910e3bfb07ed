#include "platform/controls/CWNumEdit.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace tarnlog {

namespace {

constexpr double kMostInFull = 1e15;  ///< beyond, digits before the separator would be invented

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

}  // namespace

CWNumEdit::CWNumEdit(QWidget* parent) : QDoubleSpinBox(parent) {
  setDecimals(12);
  setRange(-1e9, 1e9);
  setKeyboardTracking(false);
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

QString CWNumEdit::numberIn(QString text) const {
  if (text.startsWith(prefix())) text.remove(0, prefix().size());
  if (text.endsWith(suffix())) text.chop(suffix().size());
  return text.trimmed();
}

double CWNumEdit::valueFromText(const QString& text) const { return plainLocale().toDouble(numberIn(text)); }

QValidator::State CWNumEdit::validate(QString& text, int& /*position*/) const {
  const QLocale plain = plainLocale();
  const QString number = numberIn(text).replace(QLatin1Char('.'), plain.decimalPoint());
  text = prefix() + number + suffix();
  if (!beginsNumber(number, plain, decimals() == 0)) return QValidator::Invalid;
  bool complete = false;
  const double value = plain.toDouble(number, &complete);
  const bool within = value >= minimum() && value <= maximum();
  return complete && within ? QValidator::Acceptable : QValidator::Intermediate;
}

void CWNumEdit::fixup(QString& text) const {
  bool complete = false;
  plainLocale().toDouble(numberIn(text), &complete);
  if (!complete) return;
  text = prefix() + textFromValue(std::clamp(valueFromText(text), minimum(), maximum())) + suffix();
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
  interpretText();
  const bool inside = value() >= lowestStep_ && value() <= highestStep_;
  const double moved = value() + difference;
  setValue(inside ? std::clamp(moved, lowestStep_, highestStep_) : moved);
  selectAll();
}

}  // namespace tarnlog
