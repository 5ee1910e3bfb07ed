#pragma once

#include <cstdint>
#include <string_view>

#include "platform/screen/Controls.h"

namespace tarnlog {

enum class StatusPanel { Record, AcqTime };

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

/// What the acquisition shows, whoever shows it: a window, a console or nobody. Positions in the log are
/// 0-based, rows of the value list 1-based. No call may run the acquisition.
class AcqScreen {
 public:
  virtual ~AcqScreen() = default;

  virtual void setRecordingCaption(std::string_view caption) = 0;  ///< LblRec
  virtual void setRecordingColour(Colour colour) = 0;
  /// Rows do not reach an open record or event file, or do so again; told when it changes.
  virtual void setWriteFailing(bool failing) = 0;
  virtual void setStateIndicator(std::string_view caption, Colour colour) = 0;  ///< LblDiag
  virtual void setStartStopCaption(std::string_view caption) = 0;               ///< CommandStartStop
  virtual void setEventCaption(std::string_view caption) = 0;                   ///< EventBouton
  virtual void setPanelText(StatusPanel panel, std::string_view text) = 0;      ///< StatusBar1

  virtual void clearLog() = 0;
  virtual void removeLogLine(int position) = 0;
  /// Appends and scrolls so that the line is seen.
  virtual void appendLogLine(std::string_view line) = 0;

  virtual void rebuildValueColumns() = 0;  ///< LVvisuText: Data, Value, Unit
  virtual void clearValueRows() = 0;
  virtual void addValueRow(std::string_view text, std::string_view unit) = 0;
  virtual void setValueText(int row, std::string_view text) = 0;

  virtual GraphArea* graphArea() = 0;  ///< null when nothing is drawn
  virtual void focusStartStop() = 0;
  virtual void beep() = 0;
};

}  // namespace tarnlog
