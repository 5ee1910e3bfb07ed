#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/link/SimulatedPeer.h"
#include "host/link/Trace.h"

namespace tarnlog::host {

/// Answers from a trace, as late as the car did. Each request is looked for in the trace behind the one that
/// was answered last, so a recording asks its way through; a request that does not come again is silence.
/// Behind the last request the trace has ended, which is a TarnError at each further one.
class ReplayPeer : public SimulatedPeer {
 public:
  /// `file` is for messages.
  ReplayPeer(std::vector<TraceEntry> entries, std::string file);

  /// The link was opened again: the trace goes on where it was.
  void start() override {}
  void answer(const LinkTarget& target, std::span<const std::uint8_t> request,
              std::chrono::microseconds sinceStart, SimulatedAnswers& answers) override;

  /// The ECUs that the trace asks for OBD data, each once.
  std::vector<LinkTarget> obdEcus() const;
  /// The trace asks an ECU for several PIDs of service 01 at once.
  bool asksSeveralPids(const LinkTarget& target) const;

 private:
  std::size_t find(const LinkTarget& target, std::span<const std::uint8_t> request) const;

  std::vector<TraceEntry> entries_;
  std::string file_;
  std::size_t next_ = 0;
};

}  // namespace tarnlog::host
