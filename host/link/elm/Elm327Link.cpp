#include "host/link/elm/Elm327Link.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/link/elm/ElmSetup.h"
#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kMillisecond = 1000;
/// What the adapter itself may take, beside the ECU.
constexpr std::int64_t kAdapterTime = 500 * kMillisecond;
constexpr std::int64_t kPromptPatience = 1500 * kMillisecond;
constexpr std::int64_t kWorkPatience = 15000 * kMillisecond;
constexpr std::int64_t kBarePromptPatience = 300 * kMillisecond;
constexpr std::int64_t kPendingPause = 100 * kMillisecond;
constexpr std::size_t kMostMessages = 64;
constexpr int kMostRepeats = 4;
constexpr int kMostTroubles = 3;
constexpr int kMostSilences = 8;
/// Bytes of a request that fit beside the length into one CAN frame; the adapter cuts none.
constexpr std::size_t kLongestOnCan = 7;

[[noreturn]] void failMixed() {
  throw EcuUnreachable(
      1, "Elm327Link",
      "several ECUs answer, and this adapter neither shows which (it gives no headers) nor asks "
      "one alone: their values cannot be told apart; use another adapter");
}

[[noreturn]] void fail(const std::string& text) { throw TarnError(1, "Elm327Link", text); }

void appendDigit(std::string& text, unsigned value) { text += "0123456789ABCDEF"[value & 0xFU]; }

}  // namespace

Elm327Link::Elm327Link(std::unique_ptr<ByteStream> stream, std::optional<char> protocol, LinkClock& clock)
    : clock_(clock), console_(std::move(stream), clock), adapter_(console_, protocol) {
  console_.setWaiting([this] { idle(); }, [this] { return stopAsked(); });
}

/// Runs a step; after its failure the link can only be opened again, but for requests that no adapter sends.
template <class Step>
auto Elm327Link::guarded(Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const EcuUnreachable&) {
    throw;
  } catch (const TarnError&) {
    open_ = false;
    throw;
  }
}

void Elm327Link::open() {
  if (open_) return;
  close();
  guarded([this] {
    console_.open();
    adapterName_ = adapter_.setUp();
    assembler_.forget();
  });
  open_ = true;
}

void Elm327Link::close() {
  open_ = false;
  awaitsPrompt_ = false;
  messages_.clear();
  frameCounts_.clear();
  silences_ = 0;
  byDefault_ = false;
  unnamed_ = Unnamed::unseen;
  unnamedEcu_.reset();
  for (auto& [address, reach] : reach_) reach.apart = false;
  console_.close();
}

void Elm327Link::send(const LinkTarget& target, std::span<const std::uint8_t> request) {
  guarded([&] {
    if (!open_) fail("the adapter is not open");
    console_.begin();
    finishAnswer();
    if (silences_ >= kMostSilences) {
      silences_ = 0;
      triedByDefault_ = false;
      adapter_.forgetBus();
      assembler_.forget();
    }
    adapter_.selectBus(target, request);
    noteSearch();
    const bool toOne = target.address != kFunctionalAddress && isObdRequest(request);
    if (toOne && unnamed_ == Unnamed::some) answersAlone(target);
    if (toOne && unnamed_ == Unnamed::several && !answersAlone(target)) failMixed();
    begin(target, request);
    ask(true);
  });
}

/// The adapter takes a new request only behind the prompt of the one before; a character sent earlier breaks
/// the answer off.
void Elm327Link::finishAnswer() {
  if (awaitsPrompt_ && !promptComes(isAtWork() ? kWorkPatience : kPromptPatience)) {
    console_.write("");
    if (!promptComes(kPromptPatience)) fail("the adapter does not finish its answer: it sends no prompt");
  }
  messages_.clear();
}

bool Elm327Link::promptComes(std::int64_t patience) {
  const std::int64_t deadline = clock_.microseconds() + patience;
  while (auto item = console_.next(deadline)) {
    if (item->prompt) {
      awaitsPrompt_ = false;
      settle();
      return true;
    }
    take(std::move(item->line));
  }
  return false;
}

void Elm327Link::begin(const LinkTarget& target, std::span<const std::uint8_t> request) {
  const ElmBus bus = adapter_.bus();
  if (isCan(bus) && request.size() > kLongestOnCan)
    throw EcuUnreachable(1, "Elm327Link",
                         fmt::format("a request of {} bytes is too long: an ELM327 sends at most {} on CAN",
                                     request.size(), kLongestOnCan));
  assembler_.setBus(bus);
  Exchange& exchange = exchange_;
  exchange.target = target;
  exchange.request.assign(request.begin(), request.end());
  exchange.address = elmAddress(target, request, bus);
  const auto reach = reach_.find(target.address);
  const bool reachedFunctionally = reach != reach_.end() && reach->second.functional;
  if (unnamed_ == Unnamed::several && target.address != kFunctionalAddress)
    exchange.address.ownFilter = exchange.address.source && (isCan(bus) || bus == ElmBus::unknown);
  else if ((reachedFunctionally || byDefault_) && isObdRequest(request))
    exchange.address = elmFunctional(exchange.address, bus);
  exchange.repeats = exchange.troubles = 0;
  exchange.withoutDigit = exchange.restarted = exchange.askedTwice = exchange.atWork = false;
}

void Elm327Link::ask(bool countFrames) {
  if (!adapter_.setAddress(exchange_.address)) {
    // What it cannot send to one ECU it may send to all, where that is allowed.
    if (unnamed_ == Unnamed::several) failMixed();
    if (!isObdRequest(exchange_.request)) fail("this adapter cannot ask a single ECU: it does not know ATSH");
    exchange_.address = elmFunctional(exchange_.address, adapter_.bus());
    reach_[exchange_.target.address].functional = true;
    adapter_.setAddress(exchange_.address);
  }
  const std::int64_t longest = clock_.microseconds() + kPendingPause;
  while (const auto item = console_.next(clock_.microseconds())) {
    if (item->line.notice == ElmNotice::restarted) ElmAdapter::failRestarted();
    if (clock_.microseconds() > longest) break;
  }
  const bool known = countFrames && exchange_.target.address != kFunctionalAddress && !mayMix();
  exchange_.expectedFrames = known ? frameCounts_.of(exchange_.target.address, exchange_.request) : 0;
  text_.clear();
  for (const std::uint8_t byte : exchange_.request) {
    appendDigit(text_, byte >> 4U);
    appendDigit(text_, byte);
  }
  if (exchange_.expectedFrames > 0) appendDigit(text_, static_cast<unsigned>(exchange_.expectedFrames));
  exchange_.anything = exchange_.barePrompt = exchange_.answered = exchange_.others = false;
  exchange_.pending = exchange_.wasPending = false;
  exchange_.unnamed = 0;
  exchange_.foreign.clear();
  exchange_.notice.reset();
  assembler_.reset();
  console_.write(text_);
  exchange_.asked = clock_.microseconds();
  awaitsPrompt_ = true;
}

bool Elm327Link::receive(Bytes& response, std::chrono::milliseconds timeout) {
  return guarded([&] {
    if (!open_) fail("the adapter is not open");
    console_.begin();
    ElmMessage message;
    const auto wait = std::chrono::microseconds(timeout).count();
    if (!nextMessage(message, clock_.microseconds() + wait + kAdapterTime)) return false;
    response = std::move(message.bytes);
    return true;
  });
}

bool Elm327Link::nextMessage(ElmMessage& message, std::int64_t deadline) {
  for (;;) {
    // Whether another ECU answers, too, is known at the prompt.
    const bool held = awaitsPrompt_ && exchange_.unnamed > 0 && mayMix();
    if (!messages_.empty() && !held) {
      message = std::move(messages_.front());
      messages_.pop_front();
      return true;
    }
    if (!awaitsPrompt_) {
      if (!exchange_.pending || !listenAfterPending(deadline)) return false;
      continue;
    }
    // A prompt before any line is one that was late: the answer follows, if there is one.
    const std::int64_t limit =
        exchange_.barePrompt ? std::min(deadline, clock_.microseconds() + kBarePromptPatience) : deadline;
    auto item = console_.next(limit);
    if (!item && isAtWork() && clock_.microseconds() < exchange_.asked + kWorkPatience) {
      deadline = exchange_.asked + kWorkPatience;
      continue;
    }
    if (item && !item->prompt) {
      take(std::move(item->line));
    } else if (item && !exchange_.anything && !exchange_.barePrompt) {
      exchange_.barePrompt = true;
    } else if (item || exchange_.barePrompt) {
      awaitsPrompt_ = false;
      settle();
      if (isMixed()) {
        messages_.clear();
        unnamed_ = Unnamed::several;
        failMixed();
      }
      if (messages_.empty() && !exchange_.pending && !retry(deadline)) return false;
    } else {
      return false;
    }
  }
}

bool Elm327Link::isAtWork() const { return exchange_.atWork || console_.atWork(); }

void Elm327Link::take(ElmLine line) {
  exchange_.anything = true;
  if (line.notice == ElmNotice::working) exchange_.atWork = true;
  if (line.isData()) {
    takeData(line);
  } else if (line.notice != ElmNotice::working && line.notice != ElmNotice::ok) {
    const bool keep = exchange_.notice && exchange_.notice->notice == ElmNotice::restarted;
    if (!keep) exchange_.notice = std::move(line);
  }
}

void Elm327Link::takeData(const ElmLine& line) {
  auto message = assembler_.accept(line);
  if (!message) return;
  const auto& wanted = exchange_.address.source;
  if (wanted && message->source && message->source != wanted) {
    exchange_.others = true;
    return;
  }
  const ResponseClass kind = classifyResponse(exchange_.request, message->bytes);
  if (kind == ResponseClass::foreign) {
    exchange_.foreign = std::move(message->bytes);
    return;
  }
  noteAnswer(*message);
  exchange_.pending = kind == ResponseClass::pending;
  // On older buses an answer of other services may come in several messages.
  const bool counts = exchange_.request.front() == service::kCurrentData && !exchange_.pending;
  if (!message->source && counts) ++exchange_.unnamed;
  exchange_.wasPending = exchange_.wasPending || exchange_.pending;
  if (messages_.size() < kMostMessages) messages_.push_back(std::move(*message));
}

void Elm327Link::noteAnswer(const ElmMessage& message) {
  assembler_.confirm(message);
  if (!message.source) noteUnnamed();
  if (exchange_.answered) return;
  exchange_.answered = true;
  silences_ = 0;
  if (!adapter_.asksByDefault()) triedByDefault_ = true;  // needless
  if (exchange_.target.address == kFunctionalAddress) return;
  Reach& reach = reach_[exchange_.target.address];
  reach.answered = true;
  if (reach.triedFunctional && isCan(adapter_.bus())) reach.functional = exchange_.address.functional;
}

/// Two addresses are two ECUs.
void Elm327Link::noteUnnamed() {
  if (unnamed_ == Unnamed::unseen) unnamed_ = Unnamed::some;
  if (exchange_.target.address == kFunctionalAddress) return;
  if (!unnamedEcu_) unnamedEcu_ = exchange_.target.address;
  if (unnamedEcu_ != exchange_.target.address) unnamed_ = Unnamed::several;
}

/// The search for the bus asks all ECUs, too.
void Elm327Link::noteSearch() {
  const int answers = adapter_.unnamedAnswers();
  if (answers == 0 || unnamed_ == Unnamed::several) return;
  unnamed_ = answers > 1 ? Unnamed::several : Unnamed::one;
}

/// Answers of several ECUs may come, and be taken for one's.
bool Elm327Link::mayMix() const {
  if (exchange_.target.address == kFunctionalAddress) return false;
  if (unnamed_ != Unnamed::some && unnamed_ != Unnamed::several) return false;
  const auto reach = reach_.find(exchange_.target.address);
  return exchange_.address.functional || reach == reach_.end() || !reach->second.apart;
}

bool Elm327Link::isMixed() const {
  if (!mayMix() || exchange_.unnamed == 0) return false;
  return exchange_.unnamed > 1 || (unnamed_ == Unnamed::several && exchange_.address.functional);
}

/// Asks what every ECU would answer, of one: an adapter may say that it asks one alone and not do so.
bool Elm327Link::answersAlone(const LinkTarget& target) {
  if (reach_[target.address].apart) return true;
  finishAnswer();
  begin(target, kSupportedPids);
  if (exchange_.address.functional) return false;
  ask(false);
  // No longer than the adapter waits anyway: most addresses are silent.
  const std::int64_t wait = adapter_.timeout() * kElmTimeoutStep * kMillisecond;
  const std::int64_t deadline = clock_.microseconds() + kAdapterTime + wait;
  int answers = 0;
  try {
    ElmMessage message;
    while (nextMessage(message, deadline)) ++answers;
  } catch (const EcuUnreachable&) {
    return false;
  }
  finishAnswer();
  reach_[target.address].apart = answers > 0;
  return answers > 0;
}

void Elm327Link::settle() {
  const ElmNotice notice = exchange_.notice ? exchange_.notice->notice : ElmNotice::none;
  const std::int32_t address = exchange_.target.address;
  if (notice == ElmNotice::restarted) ElmAdapter::failRestarted();
  if (notice == ElmNotice::noConnection && !exchange_.answered)
    failWithoutEcu(console_, exchange_.notice->text);
  if (!exchange_.answered) {
    ++silences_;
    return;
  }
  if (exchange_.wasPending)
    frameCounts_.distrust(address, exchange_.request);
  else if (exchange_.withoutDigit)
    frameCounts_.helpedWithout();
  else if (exchange_.expectedFrames > 0)
    frameCounts_.helped();
  else if (address != kFunctionalAddress && !assembler_.incomplete())
    frameCounts_.learn(address, exchange_.request, assembler_.frames());
}

bool Elm327Link::retry(std::int64_t deadline) {
  if (exchange_.answered || clock_.microseconds() >= deadline || stopAsked()) return false;
  const ElmNotice notice = exchange_.notice ? exchange_.notice->notice : ElmNotice::none;
  const bool counted = exchange_.expectedFrames > 0;
  const bool silent = notice == ElmNotice::none && exchange_.others;
  switch (silent ? ElmNotice::noData : notice) {
    case ElmNotice::noData:
      return retrySilence(deadline);
    case ElmNotice::unknownCommand:
      if (counted) frameCounts_.giveUp();
      if (counted || exchange_.repeats == 0) return repeat(false);
      // Some know only a few requests, such as those for one PID.
      if (isObdRequest(exchange_.request)) return false;
      throw EcuUnreachable(1, "Elm327Link", "the adapter does not understand the request " + text_);
    case ElmNotice::busTrouble:
      if (++exchange_.troubles < kMostTroubles && repeat(false)) return true;
      failWithoutEcu(console_, exchange_.notice->text);
    default:
      if (counted) frameCounts_.distrust(exchange_.target.address, exchange_.request);
      return repeat(false);
  }
}

/// The ECU is silent. Before that is believed, what may hide its answer is tried: each at most once.
bool Elm327Link::retrySilence(std::int64_t deadline) {
  if (exchange_.expectedFrames > 0) {
    exchange_.withoutDigit = true;
    return repeat(false);
  }
  ElmAddress& address = exchange_.address;
  if (exchange_.target.address != kFunctionalAddress) {
    Reach& reach = reach_[exchange_.target.address];
    const bool mayAskAll = unnamed_ != Unnamed::several;
    if (mayAskAll && !reach.answered && !reach.triedFunctional && !address.functional &&
        isObdRequest(exchange_.request)) {
      reach.triedFunctional = true;
      address = elmFunctional(address, adapter_.bus());
      return repeat(false);
    }
    if (mayAskAll && !reach.answered && retryByDefault()) return true;
  }
  if (adapter_.bus() == ElmBus::kwp && !address.functional && !exchange_.restarted) {
    exchange_.restarted = true;
    adapter_.restartCommunication();
    return repeat(false);
  }
  const std::int64_t given = deadline - kAdapterTime - exchange_.asked;
  const std::int64_t steps =
      std::min<std::int64_t>(given / (kElmTimeoutStep * kMillisecond), kElmLongestTimeout);
  if (steps > adapter_.timeout()) {
    adapter_.setTimeout(static_cast<int>(steps));
    return repeat(false);
  }
  // An ECU that has answered before may have been disturbed.
  if (exchange_.askedTwice || !reach_[exchange_.target.address].answered) return false;
  exchange_.askedTwice = true;
  return repeat(false);
}

/// Some adapters reach their ECU only as long as they are told no address, which takes a reset.
bool Elm327Link::retryByDefault() {
  if (triedByDefault_ || adapter_.asksByDefault() || !isObdRequest(exchange_.request)) return false;
  triedByDefault_ = byDefault_ = true;
  adapterName_ = adapter_.setUp();
  adapter_.selectBus(exchange_.target, exchange_.request);
  exchange_.address = elmFunctional(exchange_.address, adapter_.bus());
  return repeat(false);
}

bool Elm327Link::repeat(bool countFrames) {
  if (!mayBeRepeated(exchange_.request) || exchange_.repeats >= kMostRepeats) return false;
  ++exchange_.repeats;
  ask(countFrames);
  return true;
}

/// The adapter no longer listens to an ECU that said "response pending": what comes all the same is taken,
/// then the request is sent again, with all the patience that the adapter has.
bool Elm327Link::listenAfterPending(std::int64_t deadline) {
  const std::int64_t now = clock_.microseconds();
  if (now >= deadline) return false;
  if (auto item = console_.next(std::min(deadline, now + kPendingPause))) {
    if (!item->prompt) take(std::move(item->line));
    return true;
  }
  if (clock_.microseconds() >= deadline || !mayBeRepeated(exchange_.request)) return false;
  adapter_.setTimeout(kElmLongestTimeout);
  ask(false);
  return true;
}

std::string Elm327Link::silence() const {
  if (awaitsPrompt_) return {};
  if (!exchange_.foreign.empty()) return "what came is " + shortHexText(exchange_.foreign);
  if (!exchange_.notice && exchange_.others) return "only other ECUs answer";
  if (!exchange_.notice)
    return exchange_.anything ? "what came is no whole answer" : "the adapter says nothing";
  const ElmLine& line = *exchange_.notice;
  if (line.notice == ElmNotice::unknownCommand) return "the adapter does not understand the request";
  return "the adapter says " + (line.notice == ElmNotice::none ? quotedText(line.text) : line.text);
}

/// Each ECU of emissions that can be asked alone.
std::vector<LinkTarget> Elm327Link::findEcusApart() {
  constexpr std::int32_t kFirst = 0x7E0;
  constexpr std::int32_t kLast = 0x7E7;
  std::vector<LinkTarget> ecus;
  for (std::int32_t address = kFirst; address <= kLast; ++address)
    if (const LinkTarget target{address, std::string(kObdName)}; answersAlone(target)) ecus.push_back(target);
  silences_ = 0;
  if (ecus.empty()) failMixed();
  return ecus;
}

std::vector<LinkTarget> Elm327Link::findEcus() {
  constexpr std::int64_t kPatience = 3000 * kMillisecond;
  send({kFunctionalAddress, std::string(kObdName)}, kSupportedPids);
  std::vector<LinkTarget> ecus;
  guarded([&] {
    const std::int64_t deadline = clock_.microseconds() + kPatience;
    ElmMessage message;
    while (nextMessage(message, deadline)) {
      const std::int32_t address = ecuAddressOf(message.source, assembler_.bus());
      const auto known = [&](const LinkTarget& ecu) { return ecu.address == address; };
      if (std::none_of(ecus.begin(), ecus.end(), known)) ecus.push_back({address, std::string(kObdName)});
    }
    if (exchange_.unnamed > 0 && unnamed_ != Unnamed::several)
      unnamed_ = exchange_.unnamed > 1 ? Unnamed::several : Unnamed::one;
    if (unnamed_ == Unnamed::several) ecus = findEcusApart();
    // Who is alone need not be told apart.
    else if (ecus.size() == 1 && !(unnamed_ == Unnamed::one && isCan(adapter_.bus())))
      reach_[ecus.front().address].functional = true;
    if (!ecus.empty()) return;
    finishAnswer();
    failWithoutEcu(console_, exchange_.notice ? exchange_.notice->text : "");
  });
  std::sort(ecus.begin(), ecus.end(),
            [](const LinkTarget& a, const LinkTarget& b) { return a.address < b.address; });
  return ecus;
}

bool Elm327Link::takesSeveralPids(const LinkTarget&) const { return isCan(adapter_.bus()); }

}  // namespace tarnlog::host
