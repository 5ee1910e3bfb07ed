#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>

#include "host/link/elm/ElmAddress.h"
#include "host/link/elm/ElmConsole.h"
#include "host/link/elm/ElmFrames.h"

namespace tarnlog::host {

/// A protocol of the adapter's list, as ATSP takes it: '1' to '9', 'A' to 'C'; '0' where the adapter does not
/// tell which one it chose.
struct ElmProtocol {
  char number = '0';
  ElmBus bus = ElmBus::unknown;
};

ElmBus busOfProtocol(char number);

/// Finds the bus over which the car's ECUs answer.
class ElmBusSearch {
 public:
  explicit ElmBusSearch(ElmConsole& console) : console_(console) {}

  /// Lets the adapter search, or when that has failed the time before, tries one protocol after the other.
  /// What was found once is tried first. TarnError that says why no ECU answers.
  ElmProtocol find();
  /// The adapter was told to wait for ECUs as long as it can, as nobody answered sooner.
  bool patient() const { return patient_; }
  /// The adapter is new, or was reset.
  void forgetPatience() { patient_ = false; }
  /// How many answers without a header came to the request that found the bus.
  int unnamedAnswers() const { return unnamed_; }
  /// Chooses a protocol without asking anybody.
  ElmProtocol choose(char number);
  /// For an ECU on the K line: fast initialisation, then 5-baud initialisation (ISO 14230-2).
  ElmProtocol findOnKLine(const ElmAddress& address);

 private:
  enum class Outcome : std::uint8_t {
    answered,
    silent,  ///< the bus works, nobody answered
    noBus
  };

  /// Frames tell the bus when it is not known.
  Outcome ask(std::span<const std::uint8_t> request, std::chrono::milliseconds patience, ElmBus& bus);
  bool searchByAdapter(ElmProtocol& found);
  bool searchOneByOne(ElmProtocol& found);
  char protocolInUse();

  ElmConsole& console_;
  char known_ = '0';
  bool oneByOne_ = false;
  bool patient_ = false;
  int unnamed_ = 0;
  std::string why_;  ///< the adapter's words about the last failure
};

}  // namespace tarnlog::host
