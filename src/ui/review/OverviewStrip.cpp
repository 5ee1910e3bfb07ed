#include "ui/review/OverviewStrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/controls/Readable.h"
#include "platform/plotting/Autoscale.h"
#include "platform/plotting/CurvePen.h"
#include "platform/plotting/PixelScale.h"
#include "ui/review/ReviewFlags.h"
#include "ui/review/ReviewKeys.h"

namespace tarnlog {
namespace {

constexpr double kGrip = 5;       ///< pixels beside an end of the window
constexpr double kLeastWide = 4;  ///< pixels of a window that is nearly nothing of the whole

bool isSame(const TimeSpan& a, const TimeSpan& b) { return a.from == b.from && a.till == b.till; }

}  // namespace

OverviewStrip::OverviewStrip(ReviewScene& scene, QWidget* parent) : QWidget(parent), scene_(scene) {
  setAccessibleName(tr("The whole record"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  scene.addListener([self = QPointer<OverviewStrip>(this)](unsigned changes) {
    if (self) self->react(changes);
  });
}

void OverviewStrip::react(unsigned changes) {
  if ((changes & kRecordsChanged) != 0) seen_.forget();
  if ((changes & (kRecordsChanged | kGraphsChanged | kChosenChanged)) != 0) picture_ = {};
  update();
}

QSize OverviewStrip::sizeHint() const { return {480, 3 * fontMetrics().height()}; }
QSize OverviewStrip::minimumSizeHint() const { return {60, 3 * fontMetrics().height()}; }

/// The chosen curve, or the first one.
std::optional<ReviewCurve> OverviewStrip::shown() const {
  const auto& chosen = scene_.chosen();
  if (chosen) return scene_.graphs()[chosen->graph].curves[chosen->curve];
  for (const ReviewGraph& graph : scene_.graphs())
    if (!graph.curves.empty()) return graph.curves.front();
  return std::nullopt;
}

void OverviewStrip::draw() {
  if (!picture_.isNull()) return;
  const qreal ratio = devicePixelRatio();
  ScrollingCanvas canvas;
  canvas.resize(std::max(qRound(width() * ratio), 1), std::max(qRound(height() * ratio), 1));
  canvas.setPen(qRound(ratio));
  canvas.fillColumns(0, canvas.width(), palette().color(QPalette::Base).rgb());
  if (const auto curve = shown()) {
    CurveTrace trace;
    seen_.see({scene_.whole(), canvas.width()});
    traceOverTime(scene_, *curve, seen_, trace);
    Autoscale scale;
    scale.follow(trace.lowest, trace.highest);
    const PixelScale rows = PixelScale::downwards(scale.range(), canvas.height());
    CurvePen pen(canvas, curveInk(*curve, palette()));
    for (const CurveTrace::Point& point : trace.points) {
      if (std::isnan(point.y))
        pen.lift();
      else
        pen.draw(static_cast<std::int64_t>(std::floor(point.x)), rows(point.y));
    }
  }
  picture_ = QImage(reinterpret_cast<const uchar*>(canvas.pixels()), canvas.width(), canvas.height(),
                    canvas.width() * 4, QImage::Format_RGB32)
                 .copy();
  picture_.setDevicePixelRatio(ratio);
}

double OverviewStrip::xOf(double time) const {
  const TimeSpan whole = scene_.whole();
  return (time - whole.from) / whole.length() * width();
}

double OverviewStrip::timeAt(double x) const {
  const TimeSpan whole = scene_.whole();
  return whole.from + x / std::max(width(), 1) * whole.length();
}

void OverviewStrip::paintEvent(QPaintEvent* /*event*/) {
  draw();
  QPainter painter(this);
  painter.drawImage(0, 0, picture_);
  const ReviewLook look = ReviewLook::of(*this);
  paintFlags(painter, scene_, scene_.whole(), rect(), look, 0);
  for (const ReviewCursor each : {ReviewCursor::A, ReviewCursor::B, ReviewCursor::Readout})
    if (const auto time = scene_.cursor(each))
      painter.fillRect(QRectF(std::floor(xOf(*time)), 0, 1, height()), look.ink(0.7F));
  const double left = xOf(scene_.span().from);
  const double right = std::max(xOf(scene_.span().till), left + kLeastWide);
  QColor shade = blend(look.base(), palette().color(QPalette::Text), 0.5F);
  shade.setAlphaF(0.35F);
  painter.fillRect(QRectF(0, 0, left, height()), shade);
  painter.fillRect(QRectF(right, 0, width() - right, height()), shade);
  const QColor frame = hasFocus() ? palette().color(QPalette::Highlight) : look.ink(0.6F);
  painter.setPen(QPen(frame, 1));
  painter.drawRect(QRectF(left + 0.5, 0.5, std::max(right - left - 1, 1.0), height() - 1));
  for (const double end : {left, right - 3})
    painter.fillRect(QRectF(end, height() * 0.3, 3, height() * 0.4), frame);
}

void OverviewStrip::resizeEvent(QResizeEvent* event) {
  picture_ = {};
  QWidget::resizeEvent(event);
}

void OverviewStrip::changeEvent(QEvent* event) {
  picture_ = {};
  update();
  QWidget::changeEvent(event);
}

OverviewStrip::Grip OverviewStrip::gripAt(double x) const {
  const double left = xOf(scene_.span().from);
  const double right = std::max(xOf(scene_.span().till), left + kLeastWide);
  if (std::abs(x - right) <= kGrip && x > (left + right) / 2) return Grip::Right;
  if (std::abs(x - left) <= kGrip) return Grip::Left;
  return x > left && x < right ? Grip::Window : Grip::None;
}

void OverviewStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || scene_.records().empty()) return QWidget::mousePressEvent(event);
  pressed_ = event->position().x();
  grip_ = gripAt(pressed_);
  goesOn_ = false;
  if (grip_ == Grip::None) {
    const double half = scene_.span().length() / 2;
    scene_.show({timeAt(pressed_) - half, timeAt(pressed_) + half});
    goesOn_ = true;
    grip_ = Grip::Window;
  }
  atPress_ = scene_.span();
}

void OverviewStrip::mouseMoveEvent(QMouseEvent* event) {
  const double x = event->position().x();
  if ((event->buttons() & Qt::LeftButton) != 0) return drag(x);
  const Grip grip = gripAt(x);
  setCursor(grip == Grip::Left || grip == Grip::Right ? Qt::SizeHorCursor
            : grip == Grip::Window                    ? Qt::OpenHandCursor
                                                      : Qt::ArrowCursor);
}

void OverviewStrip::drag(double x) {
  if (grip_ == Grip::None) return;
  const double way = timeAt(x) - timeAt(pressed_);
  TimeSpan span = atPress_;
  if (grip_ != Grip::Right) span.from += way;
  if (grip_ != Grip::Left) span.till += way;
  const TimeSpan before = scene_.span();
  scene_.show(span, goesOn_);
  goesOn_ = goesOn_ || !isSame(before, scene_.span());
}

void OverviewStrip::mouseReleaseEvent(QMouseEvent* /*event*/) { grip_ = Grip::None; }

void OverviewStrip::wheelEvent(QWheelEvent* event) {
  wheel_.turn(*event, scene_, timeAt(event->position().x()));
  event->accept();
}

void OverviewStrip::keyPressEvent(QKeyEvent* event) {
  if (!handleReviewKey(*event, scene_)) QWidget::keyPressEvent(event);
}

}  // namespace tarnlog
