#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/link/trace/SimulatedPeer.h"
#include "host/link/trace/Trace.h"

namespace tarnlog::host {

/// How many bytes of data a PID of service 01 has; 0 where nobody knows.
using PidBytes = std::function<std::size_t(std::uint8_t pid)>;

/// Answers from a trace, as late as the car did. Each request is looked for in the trace from the one that
/// its ECU answered last, so a recording asks its way through; no ECU stays far behind the others. One that
/// does not come again is silence. Where several PIDs (service 01) or identifiers (service 22) were asked for
/// at once, each is found by itself: they may be asked for in other company, or alone. When nothing that was
/// answered comes again, the trace has ended, which is a TarnError at each further request.
class ReplayPeer : public SimulatedPeer {
 public:
  /// `file` is for messages. `pidBytes` helps to tell the PIDs of one answer apart; what it does not know is
  /// learned from requests for one PID.
  ReplayPeer(std::vector<TraceEntry> entries, std::string file, const PidBytes& pidBytes = {});

  /// The link was opened again: the trace goes on where it was.
  void start() override {}
  void answer(const LinkTarget& target, std::span<const std::uint8_t> request,
              std::chrono::microseconds sinceStart, SimulatedAnswers& answers) override;

  /// The ECUs that the trace asks for OBD data, each once.
  std::vector<LinkTarget> obdEcus() const;
  /// The trace has a request of this service and more than so many bytes to this ECU.
  bool asksSeveral(const LinkTarget& target, std::uint8_t service, std::size_t bytes) const;

 private:
  /// What a request asks an ECU for: one PID, one identifier, or a whole frame.
  struct Datum {
    std::vector<std::size_t> asked;  ///< places of the requests for it
    std::size_t next = 0;            ///< the first of them that it was not answered from
    std::size_t bytes = 0;           ///< of its data in an answer; 0 where nobody knows
  };

  struct Found {
    Datum* datum;
    std::span<const std::uint8_t> identifier;
    std::size_t place;  ///< of the request to answer it from
  };

  static std::string key(const LinkTarget& target, std::uint8_t service,
                         std::span<const std::uint8_t> identifier);
  void learn(std::size_t place, const PidBytes& pidBytes);
  std::optional<std::size_t> find(const Datum& datum) const;
  bool hasEnded() const;
  std::vector<const TraceEntry*> answersTo(std::size_t place) const;
  std::optional<std::size_t> nextRequestAfter(std::size_t place) const;
  const TraceEntry* positiveAnswer(std::size_t place) const;
  std::chrono::microseconds delayOf(const TraceEntry& entry, std::size_t place) const;
  void replayWhole(std::size_t place, SimulatedAnswers& answers) const;
  bool replayParts(const std::vector<Found>& found, SimulatedAnswers& answers) const;
  /// The identifier with its data, as the answer to the request at `place` has it; empty when it has none.
  std::span<const std::uint8_t> part(std::size_t place, std::span<const std::uint8_t> identifier) const;

  std::vector<TraceEntry> entries_;
  std::string file_;
  std::map<std::string, Datum> data_;
  std::map<std::int32_t, std::size_t> places_;  ///< by address: of the request that was answered last
  std::size_t farthest_ = 0;                    ///< of them
};

}  // namespace tarnlog::host
