#pragma once

#include <QColor>
#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QString>
#include <optional>

#include "platform/plotting/ScrollingCanvas.h"
#include "ui/review/ReviewScene.h"

class QWidget;

/// How curves look and are called, in every picture of a record.
namespace tarnlog {

struct ReviewLook {
  QPalette palette;
  QFont font;
  QLocale locale;
  double ratio = 1;  ///< pixels to a point of the layout

  static ReviewLook of(const QWidget& widget);
  QColor base() const { return palette.color(QPalette::Base); }
  /// So much of the text's colour over the base.
  QColor ink(float part) const;
  char decimalSeparator() const;
};

/// Paler for the second and the third record.
QColor curveColour(const ReviewCurve& curve, const QPalette& palette);
/// With a rim where the colour is hard to see.
CurveInk curveInk(const ReviewCurve& curve, const QPalette& palette);

/// "Speed", "Speed (2)" of the second record, "Speed - Speed (2)" of a difference.
QString curveName(const ReviewScene& scene, const ReviewCurve& curve);
QString dataName(const ReviewScene& scene, const CurvePlace& place);
QString curveUnit(const ReviewScene& scene, const ReviewCurve& curve);
/// The number that holds at this time; NaN where there is none.
double numberAt(const ReviewScene& scene, const ReviewCurve& curve, double time);
/// With its label and unit; a dash where there is none.
QString valueAt(const ReviewScene& scene, const ReviewCurve& curve, double time, const QLocale& locale);
QString numberText(double number, const QLocale& locale);
/// Of the first record: "12.54 s", with the time of day where the record knows it.
QString momentText(const ReviewScene& scene, double time, const QLocale& locale);
/// When the first record began; empty where it does not tell.
QString beginningText(const ReviewScene& scene, const QLocale& locale);

}  // namespace tarnlog
