#include "ui/review/GraphLegend.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"

namespace tarnlog {
namespace {

constexpr int kSwatch = 8;
constexpr int kPadding = 4;
constexpr int kGap = 6;  ///< between chips
constexpr int kClose = 12;

QString valueOrUnit(const ReviewScene& scene, const ReviewCurve& curve, const ReviewLook& look) {
  const auto time = scene.cursor(ReviewCursor::Readout);
  return time ? valueAt(scene, curve, *time, look.locale) : curveUnit(scene, curve);
}

/// Where values change, chips stay where they are.
int valueRoom(const ReviewScene& scene, const ReviewCurve& curve, const QString& value,
              const QFontMetrics& metrics, bool changes) {
  const int now = metrics.horizontalAdvance(value);
  const QString usual = QStringLiteral("0000.00 ") + curveUnit(scene, curve);
  return changes ? std::max(now, metrics.horizontalAdvance(usual)) : now;
}

QFont boldOf(const ReviewLook& look) {
  QFont bold = look.font;
  bold.setBold(true);
  return bold;
}

/// The room that a chip needs besides its name, that of its value included.
int roomAround(int value, bool clickable) {
  return 3 * kPadding + kSwatch + (value > 0 ? kGap + value : 0) + (clickable ? kClose : 0);
}

}  // namespace

/// Where the first chip goes.
QPoint GraphLegend::layOutTitle(const QString& title, const QSize& room, const ReviewLook& look) {
  title_ = title;
  titlePlace_ = {};
  height_ = 0;
  if (title_.isEmpty()) return {};
  const QFontMetrics metrics(boldOf(look));
  height_ = QFontMetrics(look.font).height() + 2;
  titlePlace_ = QRect(kPadding, 0, std::min(metrics.horizontalAdvance(title_) + 2, room.width()), height_);
  return {titlePlace_.right() + 2 * kGap, 0};
}

void GraphLegend::layOut(const ReviewScene& scene, std::size_t graph, const QSize& room,
                         const ReviewLook& look, bool clickable) {
  const ReviewGraph& shown = scene.graphs()[graph];
  const int line = QFontMetrics(look.font).height() + 2;
  QPoint corner = layOutTitle(toQString(shown.title), room, look);
  chips_.clear();
  for (std::size_t i = 0; shown.kind != GraphKind::States && i < shown.curves.size(); ++i) {
    Chip chip = chipOf(scene, shown.curves[i], room.width(), look, clickable);
    chip.chosen = clickable && scene.chosen() == ReviewScene::Chosen{graph, i};
    if (corner.x() > 0 && corner.x() + chip.place.width() > room.width()) corner = {0, corner.y() + line};
    if (corner.y() > 0 && corner.y() + line > room.height()) break;
    chip.place.translate(corner);
    chip.close.translate(corner);
    chips_.push_back(chip);
    corner.rx() += chip.place.width() + kGap;
    height_ = corner.y() + line;
  }
}

/// In the upper left corner.
GraphLegend::Chip GraphLegend::chipOf(const ReviewScene& scene, const ReviewCurve& curve, int room,
                                      const ReviewLook& look, bool clickable) {
  const QFontMetrics metrics(look.font);
  Chip chip;
  chip.value = valueOrUnit(scene, curve, look);
  chip.colour = curveColour(curve, look.palette);
  const int around = roomAround(valueRoom(scene, curve, chip.value, metrics, clickable), clickable);
  const QString name = curveName(scene, curve);
  const int wide = std::min(around + metrics.horizontalAdvance(name) + 1, std::max(room, 1));
  chip.name = metrics.elidedText(name, Qt::ElideMiddle, std::max(wide - around + 1, 0));
  chip.nameWidth = metrics.horizontalAdvance(chip.name);
  chip.place = QRect(0, 0, wide, metrics.height() + 2);
  if (clickable) chip.close = QRect(wide - kClose - 1, 0, kClose, chip.place.height());
  return chip;
}

void GraphLegend::paint(QPainter& painter, const ReviewLook& look, std::optional<std::size_t> under) const {
  painter.setPen(look.palette.color(QPalette::WindowText));
  painter.setFont(boldOf(look));
  painter.drawText(titlePlace_, Qt::AlignLeft | Qt::AlignVCenter, title_);
  painter.setFont(look.font);
  for (std::size_t i = 0; i < chips_.size(); ++i) paintChip(painter, chips_[i], look, under == i);
}

void GraphLegend::paintChip(QPainter& painter, const Chip& chip, const ReviewLook& look, bool under) {
  const QColor window = look.palette.color(QPalette::Window);
  const QColor ink = look.palette.color(QPalette::WindowText);
  const QRect& place = chip.place;
  if (chip.chosen)
    painter.fillRect(place, blend(window, look.palette.color(QPalette::Highlight), 0.25F));
  else if (under)
    painter.fillRect(place, blend(window, ink, 0.1F));
  painter.fillRect(place.left() + kPadding, place.center().y() - kSwatch / 2 + 1, kSwatch, kSwatch,
                   chip.colour);
  painter.setPen(ink);
  if (chip.chosen || under) painter.drawText(chip.close, Qt::AlignCenter, QStringLiteral("×"));
  QRect text = place.adjusted(2 * kPadding + kSwatch, 0, -kPadding, 0);
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, chip.name);
  text.setLeft(text.left() + chip.nameWidth + kGap);
  painter.setPen(blend(window, ink, 0.75F));
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, chip.value);
}

std::optional<std::size_t> GraphLegend::at(const QPoint& position) const {
  for (std::size_t i = 0; i < chips_.size(); ++i)
    if (chips_[i].place.contains(position)) return i;
  return std::nullopt;
}

bool GraphLegend::closes(std::size_t curve, const QPoint& position) const {
  return curve < chips_.size() && chips_[curve].close.contains(position);
}

}  // namespace tarnlog
