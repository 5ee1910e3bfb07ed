#pragma once

#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <optional>

#include "acquisition/AcqScreen.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// Turns what is heard of recordings and events into flags for the curves: "Start 1", "Event 2", "Stop 1". An
/// event outside a recording has no number: "Event".
class RecordingMarks {
  Q_DECLARE_TR_FUNCTIONS(RecordingMarks)
 public:
  struct Mark {
    QString text;
    Colour colour;
  };

  /// An acquisition begins: recordings are counted anew.
  void begin();
  /// A flag where rows begin or end to be recorded.
  std::optional<Mark> hear(RecordingFact fact);
  /// Of the event that begins next, if it has one.
  void setEventNumber(std::int32_t number) { eventNumber_ = number; }
  /// A flag where an event begins.
  std::optional<Mark> hear(EventProgress progress);

 private:
  bool on_ = false;
  int recordings_ = 0;
  bool eventGoesOn_ = false;
  std::int32_t eventNumber_ = 0;
};

}  // namespace tarnlog
