#pragma once

#include <cstdint>
#include <string_view>

#include "platform/screen/Controls.h"

namespace tarnlog {

/// The states of an acquisition, under the system's numbers.
enum class AcquisitionState : std::int32_t {
  kIdle = 0,
  kInitialise = 1,
  kStartSessions = 2,
  kCommunicate = 3,
  kWaitAfterInit = 4,
  kWaitBeforePolling = 5
};

/// What there is to know about the recording. A screen shows what it heard last. `Off` and `On` say what the
/// start/stop button does next, too; the others leave that as it is.
enum class RecordingFact : std::uint8_t {
  Cleared,    ///< another session was taken
  Off,        ///< nothing is recorded
  Requested,  ///< a start or a stop is pending
  Opened,     ///< a record file has just been opened
  On          ///< rows are recorded
};

/// Why a record or event file is not open.
enum class OpenFailure : std::uint8_t {
  Failed,   ///< the system refused, with a reason
  NoStream  ///< it gave nothing to write to
};

/// The last user event. While it goes on, another is not possible.
struct EventProgress {
  bool goesOn = false;
  /// Polling cycles until its file is complete. 0 as well when the file was closed before that, as one in XML
  /// is at the end of the recording; the event goes on all the same.
  std::int32_t cyclesLeft = 0;

  bool operator==(const EventProgress&) const = default;
};

/// The scrolled area that the live display draws in: `FrGraphic` inside `FrScroll`, moved by `VScroll`
/// (pixels).
class GraphArea {
 public:
  virtual ~GraphArea() = default;
  virtual GraphicFrame& frame() = 0;  ///< FrGraphic
  virtual Twips visibleWidth() const = 0;
  virtual Twips visibleHeight() const = 0;
  virtual void setScrollRange(std::int16_t maximum, std::int16_t value) = 0;
  virtual std::int16_t scrollValue() const = 0;
};

/// What the acquisition tells whoever shows it: a window, a console or nobody. It hears facts; the words and
/// colours for them are in AcqWords.h. Positions in the log are 0-based, rows of the value list 1-based. No
/// call may run the acquisition.
class AcqScreen {
 public:
  virtual ~AcqScreen() = default;

  virtual void setState(AcquisitionState state) = 0;       ///< LblDiag
  virtual void setRecording(RecordingFact fact) = 0;       ///< LblRec, CommandStartStop
  virtual void setRecordPath(std::string_view path) = 0;   ///< of the newest record file; empty: none yet
  virtual void setElapsed(std::int64_t milliseconds) = 0;  ///< time of the recording at its newest row
  /// Of the newest event in a recording; 0: none yet. Told before the progress of that event.
  virtual void setEventNumber(std::int32_t number) = 0;
  virtual void setEventProgress(EventProgress /*progress*/) {}  ///< of any event; told when it changes
  /// In place of the path, until there is a new one.
  virtual void setOpenFailure(OpenFailure failure, std::string_view reason) = 0;
  /// Rows do not reach an open record or event file, or do so again; told when it changes.
  virtual void setWriteFailing(bool failing) = 0;

  virtual void clearLog() = 0;
  virtual void removeLogLine(int position) = 0;
  /// Appends and scrolls so that the line is seen.
  virtual void appendLogLine(std::string_view line) = 0;

  virtual void rebuildValueColumns() = 0;  ///< LVvisuText: Data, Value, Unit
  virtual void clearValueRows() = 0;
  virtual void addValueRow(std::string_view text, std::string_view unit) = 0;
  virtual void setValueText(int row, std::string_view text) = 0;
  /// The host's texts of the least and the greatest number of this acquisition; both empty after a reset.
  virtual void setValueExtremes(int /*row*/, std::string_view /*least*/, std::string_view /*greatest*/) {}

  virtual GraphArea* graphArea() = 0;  ///< null when nothing is drawn
  virtual void focusStartStop() = 0;
  virtual void beep() = 0;
};

}  // namespace tarnlog
