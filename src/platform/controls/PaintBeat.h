#pragma once

#include <QBasicTimer>
#include <QObject>
#include <vector>

class QScreen;

namespace tarnlog {

class PaintPacer;

/// The rhythm in which a screen shows pictures: one for all paced widgets on it, so that they are painted
/// together. It rests when nobody has asked for a while.
class PaintBeat : public QObject {
  Q_OBJECT
 public:
  /// Null without a screen. It belongs to the screen.
  static PaintBeat* of(QScreen* screen);

  /// Has it painted with the next picture (of its pace); at once after a rest.
  void add(PaintPacer* pacer);
  void forget(PaintPacer* pacer);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  explicit PaintBeat(QScreen* screen);
  void paint();
  static void paintAll(std::vector<PaintPacer*>& due);

  QBasicTimer timer_;
  std::vector<PaintPacer*> pictures_;
  std::vector<PaintPacer*> texts_;
  int sinceTexts_ = 0;  ///< pictures
  int idle_ = 0;        ///< pictures since somebody asked
};

}  // namespace tarnlog
