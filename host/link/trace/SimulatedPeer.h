#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <utility>
#include <vector>

#include "host/link/Link.h"

namespace tarnlog::host {

/// Answers on their way, each with its delay from the moment of the request; delays do not decrease. Reuses
/// its memory.
class SimulatedAnswers {
 public:
  struct Answer {
    std::chrono::microseconds delay{};
    Link::Bytes bytes;
    bool silence = false;        ///< nothing comes, and that is known then
    std::exception_ptr failure;  ///< instead of bytes
  };

  /// The bytes of a new answer, empty.
  Link::Bytes& add(std::chrono::microseconds delay) { return addAnswer(delay).bytes; }
  /// The wait for an answer ends without one.
  void addSilence(std::chrono::microseconds delay) { addAnswer(delay).silence = true; }
  /// It ends with a TarnError.
  void addFailure(std::chrono::microseconds delay, std::exception_ptr failure) {
    addAnswer(delay).failure = std::move(failure);
  }
  void clear() { used_ = 0; }
  std::size_t count() const { return used_; }
  Answer& operator[](std::size_t position) { return answers_[position]; }

 private:
  Answer& addAnswer(std::chrono::microseconds delay) {
    if (used_ == answers_.size()) answers_.emplace_back();
    Answer& answer = answers_[used_++];
    answer.delay = delay;
    answer.bytes.clear();
    answer.silence = false;
    answer.failure = nullptr;
    return answer;
  }

  std::vector<Answer> answers_;
  std::size_t used_ = 0;
};

/// The ECUs at the far end of a simulated link: what they answer, and how much later.
class SimulatedPeer {
 public:
  virtual ~SimulatedPeer() = default;
  /// The link was opened: times count from here.
  virtual void start() = 0;
  /// Adds the answers to a request; none for silence.
  virtual void answer(const LinkTarget& target, std::span<const std::uint8_t> request,
                      std::chrono::microseconds sinceStart, SimulatedAnswers& answers) = 0;
};

}  // namespace tarnlog::host
