#pragma once

#include <QObject>
#include <QTimer>

namespace tarnlog {

class TarnAcq;

/// Notices that the values shown have grown old: for a second the vehicle has not answered, or no polling
/// cycle was completed because of failures. It looks while an acquisition runs, once a second as long as all
/// is well: a request that waits for its answer changes nothing else that could be noticed.
class ConnectionWatch : public QObject {
  Q_OBJECT
 public:
  /// `acq` outlives the watch's use of it, which begins with the first `look`.
  explicit ConnectionWatch(const TarnAcq& acq, QObject* parent = nullptr);
  /// To be called when the state of the acquisition has changed, too.
  void look();

 signals:
  /// The age of the values in whole seconds, whenever it is another; 0 once they are fresh, or gone.
  void aged(qint64 seconds);

 private:
  qint64 seconds() const;

  const TarnAcq& acq_;
  QTimer timer_;
  qint64 seconds_ = 0;
};

}  // namespace tarnlog
