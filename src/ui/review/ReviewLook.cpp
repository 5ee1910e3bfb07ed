#include "ui/review/ReviewLook.h"

#include <QDateTime>
#include <QWidget>
#include <cmath>
#include <limits>

#include "platform/controls/Readable.h"
#include "platform/text/Numbers.h"
#include "ui/common/Convert.h"
#include "ui/review/TimeTicks.h"

namespace tarnlog {
namespace {

constexpr float kRim = 0.7F;  ///< of the text's colour over the base
constexpr float kPaler[ReviewScene::kMostRecords] = {1, 0.55F, 0.35F};

/// As many digits as a measurement has; a count keeps all of its own.
double shortened(double number) {
  constexpr int kDigits = 6;
  if (number == 0 || number == std::round(number)) return number;
  return QByteArray::number(number, 'g', kDigits).toDouble();
}

std::optional<QDateTime> zeroOf(const RecordHead& head) {
  if (head.utcNanoseconds) return QDateTime::fromMSecsSinceEpoch(*head.utcNanoseconds / 1'000'000);
  if (!head.local) return std::nullopt;
  const LocalDateTime& at = *head.local;
  return QDateTime(QDate(at.year, at.month, at.day), QTime(at.hour, at.minute, at.second));
}

}  // namespace

ReviewLook ReviewLook::of(const QWidget& widget) {
  return {widget.palette(), widget.font(), widget.locale(), widget.devicePixelRatio()};
}

QColor ReviewLook::ink(float part) const { return blend(base(), palette.color(QPalette::Text), part); }

char ReviewLook::decimalSeparator() const {
  const QString separator = locale.decimalPoint();
  const char latin = separator.isEmpty() ? '\0' : separator[0].toLatin1();
  return latin == '\0' ? '.' : latin;  // Arabic has one of its own
}

QColor curveColour(const ReviewCurve& curve, const QPalette& palette) {
  const std::size_t record = std::min(curve.place.record, ReviewScene::kMostRecords - 1);
  const float part = curve.minus ? 1 : kPaler[record];
  return blend(palette.color(QPalette::Base), QColor::fromRgb(curve.colour), part);
}

CurveInk curveInk(const ReviewCurve& curve, const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor chosen = QColor::fromRgb(curve.colour);
  const bool rim = contrastOf(chosen, base) < (isDark(base) ? kCurveContrastOnDark : kCurveContrast);
  return {curveColour(curve, palette).rgb(),
          rim ? blend(base, palette.color(QPalette::Text), kRim).rgb() : 0};
}

QString dataName(const ReviewScene& scene, const CurvePlace& place) {
  const QString name = toQString(scene.column(place).about.name);
  return place.record == 0 ? name : QStringLiteral("%1 (%2)").arg(name).arg(place.record + 1);
}

QString curveName(const ReviewScene& scene, const ReviewCurve& curve) {
  const QString name = dataName(scene, curve.place);
  return curve.minus ? QStringLiteral("%1 − %2").arg(name, dataName(scene, *curve.minus)) : name;
}

QString curveUnit(const ReviewScene& scene, const ReviewCurve& curve) {
  return toQString(scene.column(curve.place).about.unit);
}

double numberAt(const ReviewScene& scene, const ReviewCurve& curve, double time) {
  const auto number = [&](const CurvePlace& place) {
    const auto row = scene.rowAt(place, time);
    return row ? scene.column(place).numbers[*row] : std::numeric_limits<double>::quiet_NaN();
  };
  return number(curve.place) - (curve.minus ? number(*curve.minus) : 0);
}

QString numberText(double number, const QLocale& locale) {
  if (std::isnan(number)) return QStringLiteral("–");
  std::string text;
  appendNumber(text, shortened(number), '.');
  return toQString(text).replace(QLatin1Char('.'), locale.decimalPoint());
}

QString valueAt(const ReviewScene& scene, const ReviewCurve& curve, double time, const QLocale& locale) {
  const auto row = scene.rowAt(curve.place, time);
  if (row && !curve.minus)
    if (const auto label = scene.column(curve.place).labelOf(*row); !label.empty()) return toQString(label);
  const double number = numberAt(scene, curve, time);
  const QString unit = curveUnit(scene, curve);
  return numberText(number, locale) +
         (unit.isEmpty() || std::isnan(number) ? QString() : QLatin1Char(' ') + unit);
}

QString momentText(const ReviewScene& scene, double time, const QLocale& locale) {
  const ReviewLook look{{}, {}, locale, 1};
  QString text = toQString(timeText(time, 0.001, look.decimalSeparator()));
  if (scene.records().empty()) return text;
  const LookedAtRecord& record = scene.records().front();
  const auto zero = zeroOf(record.recordingTable().head);
  if (!zero) return text;
  const QDateTime at = zero->addMSecs(std::llround((time - record.offset) * 1000));
  return text + QStringLiteral(" (%1)").arg(at.toString(QStringLiteral("HH:mm:ss")));
}

QString beginningText(const ReviewScene& scene, const QLocale& locale) {
  if (scene.records().empty()) return {};
  const auto zero = zeroOf(scene.records().front().recordingTable().head);
  return zero ? locale.toString(*zero, QLocale::ShortFormat) : QString();
}

}  // namespace tarnlog
