#pragma once

#include <QPointer>
#include <QRect>

class QWidget;

namespace tarnlog {

class PaintBeat;

/// Lets a widget be painted at most as often as its screen shows pictures. What is asked for in between is
/// gathered and painted with the next picture. Asking allocates nothing while pictures follow one another.
class PaintPacer {
 public:
  enum class Pace {
    Pictures,
    Texts,  ///< ten times a second: digits that change faster cannot be read
  };

  explicit PaintPacer(QWidget* widget, Pace pace = Pace::Pictures) : widget_(widget), pace_(pace) {}
  ~PaintPacer();
  Q_DISABLE_COPY_MOVE(PaintPacer)

  void request(const QRect& area);

 private:
  friend class PaintBeat;
  /// Hands over to the toolkit what has been asked for.
  void paint();

  QWidget* widget_;
  Pace pace_;
  QRect due_;
  QPointer<PaintBeat> beat_;  ///< of the screen that the widget was on when it asked
};

}  // namespace tarnlog
