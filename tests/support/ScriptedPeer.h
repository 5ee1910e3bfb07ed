#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/link/trace/SimulatedPeer.h"
#include "host/service/HexText.h"

namespace tarnlog::test {

/// ECUs that answer frames with frames, all as hexadecimal text: each answer 10 ms after the one before it. A
/// frame without a script is not answered.
class ScriptedPeer : public host::SimulatedPeer {
 public:
  std::map<std::string, std::vector<std::string>> script;
  std::vector<std::string> sent;  ///< "address: frame" of every request
  std::string unreachable;        ///< a frame that does not reach its ECU
  std::string fatal;              ///< a frame that ends the link
  int starts = 0;

  void start() override { ++starts; }
  void answer(const host::LinkTarget& target, std::span<const std::uint8_t> request,
              std::chrono::microseconds, host::SimulatedAnswers& answers) override {
    const std::string frame = host::hexText(request);
    sent.push_back(std::to_string(target.address) + ": " + frame);
    if (frame == unreachable) throw host::EcuUnreachable(1, "ScriptedPeer", "the ECU cannot be reached");
    if (frame == fatal) throw TarnError(1, "ScriptedPeer", "the adapter is gone");
    std::chrono::milliseconds delay{0};
    for (const std::string& answer : script[frame])
      answers.add(delay += std::chrono::milliseconds(10)) = *host::bytesFromHex(answer);
  }
};

}  // namespace tarnlog::test
