#pragma once

#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <optional>

#include "acquisition/AcqScreen.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// Turns what is heard of recordings and events into flags for the curves: "Start 1", "Event 2", "Stop 1".
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
  /// The newest event; 0: none yet.
  std::optional<Mark> hearEvent(std::int32_t number);

 private:
  bool on_ = false;
  int recordings_ = 0;
};

}  // namespace tarnlog
