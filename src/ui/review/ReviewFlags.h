#pragma once

#include <QRect>
#include <QString>

#include "ui/review/ReviewLook.h"

class QPainter;

/// Marks of records in a picture: flags where a recording starts and stops and where events are, and shaded
/// gaps.
namespace tarnlog {

struct ReviewFlag {
  QString text;
  QColor colour;
};

ReviewFlag flagOf(const TableMark& mark);
/// With texts, where they have room, for so many of the records.
void paintFlags(QPainter& painter, const ReviewScene& scene, const TimeSpan& span, const QRect& area,
                const ReviewLook& look, int texts);
/// The marks of the first record that stand there, as near as so many seconds, as lines.
QString flagsNear(const ReviewScene& scene, double time, double reach, const QLocale& locale);

}  // namespace tarnlog
