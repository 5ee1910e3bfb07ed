#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnlog {

/// The text of the log view: every message of the latest acquisition on a line of its own, cut in front when
/// it has grown long.
class LogPane {
 public:
  static constexpr std::size_t kMostCharacters = 32000;     ///< a longer text is cut before a line is added
  static constexpr std::size_t kDroppedCharacters = 15999;  ///< so many then go

  /// Adds CR LF and the line (UTF-8). True when the beginning of the text was cut off before.
  bool add(std::string_view line);
  void clear();
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  std::size_t characters_ = 0;  ///< of `text_`, which has more bytes
};

}  // namespace tarnlog
