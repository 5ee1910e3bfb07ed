#include "host/link/elm/ElmRate.h"

#include <fmt/format.h>

#include <array>

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

/// The highest is the one up to which adapters take bytes without pauses between them.
constexpr std::array kFaster{500'000, 230'400, 115'200};
constexpr int kAdapterClock = 4'000'000;
constexpr int kHighestDivisor = 0xFF;

constexpr auto kPatience = 300ms;
constexpr auto kPromptPatience = 20ms;
/// An adapter gives the line 75 ms to change before it says its name, and as much for the answer.
constexpr auto kGreetingPatience = 250ms;
constexpr auto kReturnTime = 100ms;
constexpr auto kSearchPatience = 200ms;
constexpr int kProofs = 3;

int divisorOf(int rate) { return (kAdapterClock + rate / 2) / rate; }

}  // namespace

bool ElmRate::raise(std::string_view name) {
  own_ = console_.rate();
  name_ = name;
  if (!mayRaise_ || own_ == 0) return true;
  for (; next_ < kFaster.size() && kFaster[next_] > own_; ++next_) {
    if (!tryRate(kFaster[next_])) return false;
    if (isRaised()) return true;
  }
  return true;
}

/// False when the adapter does not answer afterwards.
bool ElmRate::tryRate(int rate) {
  if (!console_.setRate(rate)) return true;
  console_.setRate(own_);
  raised_ = rate;
  const Outcome outcome = change(own_, rate);
  if (outcome == Outcome::changed && isProven()) return true;
  const bool back = outcome != Outcome::changed || leave();
  const bool inOrder = outcome == Outcome::unknown || (back && isInOrder());
  if (inOrder) raised_ = 0;
  if (outcome == Outcome::unknown || outcome == Outcome::ignored || !inOrder) giveUp();
  return inOrder;
}

void ElmRate::giveUp() { next_ = kFaster.size(); }

bool ElmRate::leave() {
  if (!isRaised()) return true;
  console_.setRate(raised_);
  console_.rest(kPatience);
  const bool back = divisorOf(own_) <= kHighestDivisor && change(raised_, own_) == Outcome::changed;
  if (!back) {
    // It starts at its own rate.
    console_.write("ATZ");
    console_.setRate(own_);
  }
  raised_ = 0;
  return back;
}

void ElmRate::find() {
  own_ = console_.rate();
  if (own_ == 0) return;
  for (const int rate : kFaster) {
    if (rate <= own_ || !console_.setRate(rate)) continue;
    if (isHere()) {
      name_ = console_.command("ATI", kSearchPatience).text();
      raised_ = rate;
      leave();
      return;
    }
    console_.setRate(own_);
  }
}

/// What was sent at another rate may stand before the first command, or the adapter be at work.
bool ElmRate::isHere() {
  for (int attempt = 0; attempt < 3; ++attempt) {
    const ElmReply reply = console_.command("ATE0", kSearchPatience);
    if (!reply.prompted) return false;
    if (reply.has(ElmNotice::ok)) return true;
  }
  return false;
}

/// The adapter says OK without a prompt, goes on at the new rate and says its name there. Where that is not
/// answered, it goes back by itself.
ElmRate::Outcome ElmRate::change(int from, int to) {
  const Outcome outcome = ask(to);
  if (outcome != Outcome::changed) return outcome;
  console_.setRate(to);
  if (isGreeted() && console_.command("", kPatience).has(ElmNotice::ok)) return Outcome::changed;
  console_.setRate(from);
  console_.drop(kReturnTime, kReturnTime);
  return Outcome::failed;
}

ElmRate::Outcome ElmRate::ask(int rate) {
  console_.drop(0ms, 0ms);
  console_.write(fmt::format("ATBRD{:02X}", divisorOf(rate)));
  Moment deadline = console_.in(kPatience);
  Outcome outcome = Outcome::failed;
  while (const auto item = console_.next(deadline)) {
    if (item->prompt) return outcome == Outcome::changed ? Outcome::ignored : Outcome::unknown;
    if (outcome == Outcome::changed) break;
    if (item->line.notice != ElmNotice::ok) continue;
    outcome = Outcome::changed;
    deadline = console_.in(kPromptPatience);
  }
  return outcome;
}

bool ElmRate::isGreeted() {
  const Moment deadline = console_.in(kGreetingPatience);
  while (const auto item = console_.next(deadline))
    if (item->line.notice == ElmNotice::restarted || (!item->prompt && item->line.text == name_)) return true;
  return false;
}

bool ElmRate::isProven() {
  for (int proof = 0; proof < kProofs; ++proof)
    if (!saysName()) return false;
  return true;
}

bool ElmRate::isInOrder() {
  for (int attempt = 0; attempt < kProofs; ++attempt)
    if (saysName()) return true;
  return false;
}

bool ElmRate::saysName() {
  const ElmReply reply = console_.command("ATI", kPatience);
  return reply.prompted && reply.text() == name_;
}

}  // namespace tarnlog::host
