#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QRegion>

class QWidget;

namespace tarnlog {

/// Lets a widget be painted at most as often as its screen shows pictures. What is asked for in between is
/// gathered and painted with the next picture.
class PaintPacer : public QObject {
 public:
  explicit PaintPacer(QWidget* widget) : QObject(nullptr), widget_(widget) {}
  void request(const QRect& area);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void flush();

  QWidget* widget_;
  QRegion due_;
  QBasicTimer timer_;
  QElapsedTimer last_;
};

}  // namespace tarnlog
