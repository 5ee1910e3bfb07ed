#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "acquisition/SilentAcqScreen.h"

namespace tarnlog::record {

/// The acquisition's screen without a window: log lines and errors go to `print`, the state is kept for the
/// progress line, nothing is drawn.
class ConsoleScreen : public SilentAcqScreen {
 public:
  using Print = std::function<void(std::string_view line)>;

  explicit ConsoleScreen(Print print) : print_(std::move(print)) {}

  const std::string& state() const { return state_; }
  const std::string& elapsed() const { return elapsed_; }
  /// A record or event file could not be opened since the start.
  bool openFailed() const { return openFailed_; }

  void setStateIndicator(std::string_view caption, Colour) override { state_ = caption; }
  void setPanelText(StatusPanel panel, std::string_view text) override;
  void appendLogLine(std::string_view line) override { print_(line); }

 private:
  Print print_;
  std::string state_;
  std::string elapsed_ = "0";
  bool openFailed_ = false;
};

}  // namespace tarnlog::record
