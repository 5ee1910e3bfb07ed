#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/link/elm/ElmConsole.h"

namespace tarnlog::host {

/// The rate of the serial line to an adapter: raised as far as adapter and port go, and taken back. Nothing
/// is stored in the adapter. Where a line has no rate, nothing is done.
class ElmRate {
 public:
  /// `mayRaise`: false leaves the adapter at the rate at which the line is opened.
  ElmRate(ElmConsole& console, bool mayRaise) : console_(console), mayRaise_(mayRaise) {}

  /// Tries the faster rates, the highest first, until exchanges prove one. An adapter that does not know the
  /// command is asked once, and a rate that did not serve is not tried again. `name` is what the adapter
  /// answers to ATI. False when the adapter does not answer any more and needs a reset.
  bool raise(std::string_view name);
  /// Goes back to the rate at which the line was opened. To be called before a reset, which takes many
  /// adapters back, and others not. False when the adapter had to start again for it.
  bool leave();
  /// Looks for an adapter that was left at a faster rate, and takes it back.
  void find();
  bool isRaised() const { return raised_ != 0; }
  /// The rate does not serve: the next ones are tried from now on.
  void distrust() { ++next_; }

 private:
  enum class Outcome : std::uint8_t {
    changed,
    unknown,  ///< the adapter does not know the command
    ignored,  ///< it says OK, as some do to everything, and a prompt
    failed    ///< it is back at the rate before
  };

  Outcome ask(int rate);
  Outcome change(int from, int to);
  bool tryRate(int rate);
  bool isGreeted();
  bool saysName();
  bool isProven();
  bool isInOrder();
  bool isHere();
  void giveUp();

  ElmConsole& console_;
  bool mayRaise_;
  std::string name_;
  int own_ = 0;           ///< at which the line was opened
  int raised_ = 0;        ///< at which the adapter may be instead; 0: at its own
  std::size_t next_ = 0;  ///< of the faster rates
};

}  // namespace tarnlog::host
