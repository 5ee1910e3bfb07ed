#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What an ELM327 and its many relatives write: lines, messages in words, a ">" when they wait for a command.
namespace tarnlog::host {

/// Messages in words, by what is to be done about them.
enum class ElmNotice : std::uint8_t {
  none,
  ok,
  unknownCommand,  ///< "?"
  working,         ///< SEARCHING..., BUS INIT: ..., alerts: nothing to be done
  noData,          ///< the ECUs stay silent
  noConnection,    ///< UNABLE TO CONNECT, BUS INIT: ...ERROR
  busTrouble,      ///< CAN ERROR, BUS ERROR, BUS BUSY, FB ERROR
  damaged,         ///< the answer is not whole: DATA ERROR, <RX ERROR, BUFFER FULL, STOPPED
  restarted,       ///< the device's name, LV RESET, ERR94: all settings are gone
};

/// One line. It is a message in words, hexadecimal digits, or something else.
struct ElmLine {
  ElmNotice notice = ElmNotice::none;
  std::string digits;         ///< upper case, without blanks
  std::optional<int> number;  ///< of a line like "1: 41 00 BE"; `digits` may be empty then
  std::string text;           ///< the line as it came, without blanks around it

  bool isData() const { return notice == ElmNotice::none && (number || !digits.empty()); }
};

ElmLine parseElmLine(std::string_view text);

/// What came from outside, for one line of a message: in quotes, control characters and others that a
/// terminal might not show as \x1B, cut with "..." when it is long.
std::string quotedText(std::string_view text);

/// The beginning of a line tells that the adapter searches or starts a bus, which takes seconds.
bool beginsWork(std::string_view text);

/// Cuts what an adapter sends into lines and prompts. CR, LF or both end a line; NUL bytes are dropped;
/// empty lines are left out. Keeps one line of bounded length at most.
class ElmReader {
 public:
  static constexpr std::size_t kLongestLine = 1024;

  struct Item {
    bool prompt = false;
    std::string_view text;  ///< a line; valid until the next call
  };

  /// `bytes` must stay until `next` has given all of them.
  void feed(std::span<const std::uint8_t> bytes) { rest_ = bytes; }
  /// None when more bytes are needed.
  std::optional<Item> next();
  /// What has come of a line that is not whole yet.
  std::string_view begun() const { return given_ ? std::string_view() : std::string_view(line_); }
  void clear();

 private:
  std::span<const std::uint8_t> rest_;
  std::string line_;
  bool given_ = false;   ///< `line_` was handed out
  bool prompt_ = false;  ///< behind `line_`
};

}  // namespace tarnlog::host
