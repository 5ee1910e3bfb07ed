#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <optional>

namespace tarnlog {

class EndQuestion;

/// Lets nothing end a recording that runs before the host has said yes.
class RecordingGuard : public QObject {
  Q_OBJECT
 public:
  /// A number of the recording that runs; none when none does.
  using Running = std::function<std::optional<std::int32_t>()>;

  /// Without a question the answer is always yes; the question is asked on `parent`, and outlives the guard.
  RecordingGuard(EndQuestion* question, Running running, QWidget* parent);
  ~RecordingGuard() override;

  /// Runs the action at once when nothing records, else once the host says yes. An action takes the place of
  /// one that still waits. When the recording ends while the question is open, the question goes and so does
  /// the action: nobody has said yes to it.
  void whenMayEnd(std::function<void()> action);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void take(bool end);
  void withdraw();

  EndQuestion* question_;
  Running running_;
  QWidget* parent_;
  std::function<void()> waiting_;
  std::optional<std::int32_t> recording_;  ///< that the question is about
  std::uint64_t asked_ = 0;  ///< numbers the questions: an answer that comes late belongs to none
  int timer_ = 0;            ///< runs while a question is open
};

}  // namespace tarnlog
