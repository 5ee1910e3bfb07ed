#include "host/link/elm/Elm327Link.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/link/elm/ElmSetup.h"
#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds kPromptPatience = 1500ms;
constexpr std::chrono::milliseconds kWorkPatience = 15s;
constexpr auto kBarePromptPatience = 300ms;
constexpr auto kPendingPause = 100ms;
constexpr std::size_t kMostMessages = 64;
constexpr int kMostSilences = 8;
/// A fault of a raised line weighs as much as so many whole answers.
constexpr int kLineFault = 8;
constexpr int kMostLineFaults = 3 * kLineFault;
/// Longest request in a single frame (ISO 15765-2); the adapter does not segment.
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

Elm327Link::Elm327Link(std::unique_ptr<ByteStream> stream, std::optional<char> protocol, LinkClock& clock,
                       bool mayBeFaster)
    : clock_(clock), console_(std::move(stream), clock), adapter_(console_, protocol, mayBeFaster) {}

/// Whoever would be told of it may be gone.
Elm327Link::~Elm327Link() {
  Link::setTextHook(nullptr);
  console_.waitAlone();
  adapter_.leave();
}

void Elm327Link::doOpen() {
  console_.setWaiting([this] { idle(); }, [this] { return stopAsked(); });
  console_.begin();
  startAnew();
  if (isLineTooFast()) distrustLine();
  console_.open();
  adapterName_ = adapter_.setUp();
  assembler_.forget();
}

/// Whoever closes the link may not expect that anything runs meanwhile.
void Elm327Link::doClose() {
  console_.waitAlone();
  startAnew();
}

void Elm327Link::startAnew() {
  awaitsPrompt_ = false;
  messages_.clear();
  frameCounts_.clear();
  silences_ = 0;
  byDefault_ = false;
  unnamed_ = Unnamed::unseen;
  provenAlone_ = false;
  unnamedEcu_.reset();
  for (auto& [address, reach] : reach_) reach.apart = false;
  adapter_.leave();
  console_.close();
}

bool Elm327Link::doSend(const LinkTarget& target, std::span<const std::uint8_t> request) {
  console_.begin();
  waitingSince_ = clock_.now();
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
  fitTimeout();
  ask(true);
  return true;
}

/// The adapter takes a new request only after the prompt of the one before; a character sent earlier aborts
/// the response.
void Elm327Link::finishAnswer() {
  if (awaitsPrompt_ && !promptComes(isAtWork() ? kWorkPatience : kPromptPatience)) {
    console_.write("");
    if (promptComes(kPromptPatience)) return messages_.clear();
    noteLine(false);
    fail("the adapter does not finish its answer: it sends no prompt");
  }
  messages_.clear();
}

bool Elm327Link::promptComes(std::chrono::milliseconds patience) {
  const Moment deadline = clock_.now() + patience;
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
  Exchange exchange;
  exchange.target = target;
  exchange.request = std::move(exchange_.request);  // for its capacity
  exchange.request.assign(request.begin(), request.end());
  exchange.address = elmAddress(target, request, bus);
  const auto reach = reach_.find(target.address);
  const bool reachedFunctionally = reach != reach_.end() && reach->second.functional;
  if (unnamed_ == Unnamed::several && target.address != kFunctionalAddress)
    exchange.address.ownFilter = exchange.address.source && (isCan(bus) || bus == ElmBus::unknown);
  else if ((reachedFunctionally || byDefault_) && isObdRequest(request))
    exchange.address = elmFunctional(exchange.address, bus);
  exchange_ = std::move(exchange);
}

void Elm327Link::ask(bool countFrames) {
  useAddress();
  dropLateLines();
  exchange_.attempt = Attempt();
  exchange_.attempt.expectedFrames = frameCountFor(countFrames);
  assembler_.reset();
  writeRequest();
  exchange_.attempt.asked = clock_.now();
  awaitsPrompt_ = true;
}

/// If the adapter cannot address physically, OBD requests are sent functionally.
void Elm327Link::useAddress() {
  if (adapter_.setAddress(exchange_.address)) return;
  if (unnamed_ == Unnamed::several) failMixed();
  if (!isObdRequest(exchange_.request)) fail("this adapter cannot ask a single ECU: it does not know ATSH");
  exchange_.address = elmFunctional(exchange_.address, adapter_.bus());
  reach_[exchange_.target.address].functional = true;
  adapter_.setAddress(exchange_.address);
}

/// Has an adapter wait less that waits for nothing behind the answers of this ECU, and as long as usual for
/// another that needs it.
void Elm327Link::fitTimeout() {
  const auto reach = reach_.find(exchange_.target.address);
  const bool known = reach != reach_.end() && exchange_.target.address != kFunctionalAddress;
  const ElmWait wait = known ? reach->second.wait : ElmWait();
  const int now = adapter_.timeout();
  if (wait.isWasted(now)) adapter_.setTimeout(wait.steps());
  if (now < kElmDefaultTimeout && now < wait.steps())
    adapter_.setTimeout(std::min(wait.steps(), kElmDefaultTimeout));
}

void Elm327Link::dropLateLines() {
  const Moment longest = clock_.now() + kPendingPause;
  while (const auto item = console_.next(clock_.now())) {
    if (item->line.notice == ElmNotice::restarted) ElmAdapter::failRestarted();
    if (clock_.now() > longest) break;
  }
}

int Elm327Link::frameCountFor(bool countFrames) {
  const bool known = countFrames && exchange_.target.address != kFunctionalAddress && !mayMix();
  return known ? frameCounts_.of(exchange_.target.address, exchange_.request) : 0;
}

void Elm327Link::writeRequest() {
  text_.clear();
  for (const std::uint8_t byte : exchange_.request) {
    appendDigit(text_, byte >> 4U);
    appendDigit(text_, byte);
  }
  const int frames = exchange_.attempt.expectedFrames;
  if (frames > 0) appendDigit(text_, static_cast<unsigned>(frames));
  console_.write(text_);
}

Link::Received Elm327Link::doReceive(Bytes& response, std::chrono::milliseconds timeout) {
  console_.begin();
  waitingSince_ = clock_.now();
  ElmMessage message;
  if (!nextMessage(message, clock_.now() + timeout + kAdapterTime)) return Received::nothing;
  response = std::move(message.bytes);
  return Received::response;
}

bool Elm327Link::nextMessage(ElmMessage& message, Moment deadline) {
  for (;;) {
    // Whether another ECU answers, too, is known only when the prompt comes.
    const bool held = awaitsPrompt_ && exchange_.attempt.unnamed > 0 && mayMix();
    if (!messages_.empty() && !held) {
      message = std::move(messages_.front());
      messages_.pop_front();
      return true;
    }
    const bool mayCome =
        awaitsPrompt_ ? takeNext(deadline) : exchange_.attempt.pending && listenAfterPending(deadline);
    if (!mayCome) return false;
  }
}

/// The next line or prompt of the answer; false when nothing comes any more. The deadline is extended while
/// the adapter looks for the bus.
bool Elm327Link::takeNext(Moment& deadline) {
  Attempt& attempt = exchange_.attempt;
  // A prompt before any line is one that was late: the answer follows, if there is one.
  const Moment limit = attempt.barePrompt ? std::min(deadline, clock_.now() + kBarePromptPatience) : deadline;
  auto item = console_.next(limit);
  if (!item && isAtWork() && clock_.now() < attempt.asked + kWorkPatience) {
    deadline = attempt.asked + kWorkPatience;
    return true;
  }
  if (item && !item->prompt) {
    take(std::move(item->line));
    return true;
  }
  if (item && !attempt.anything && !attempt.barePrompt) {
    attempt.barePrompt = true;
    return true;
  }
  if (!item && !attempt.barePrompt) return false;
  awaitsPrompt_ = false;
  settle();
  if (isMixed()) {
    messages_.clear();
    unnamed_ = Unnamed::several;
    failMixed();
  }
  return !messages_.empty() || exchange_.attempt.pending || retry(deadline);
}

bool Elm327Link::isAtWork() const { return exchange_.atWork || console_.atWork(); }

void Elm327Link::take(ElmLine line) {
  exchange_.attempt.anything = true;
  if (line.notice == ElmNotice::working) exchange_.atWork = true;
  if (line.isData()) {
    takeData(line);
  } else if (line.notice != ElmNotice::working && line.notice != ElmNotice::ok) {
    const bool keep = exchange_.attempt.notice && exchange_.attempt.notice->notice == ElmNotice::restarted;
    if (!keep) exchange_.attempt.notice = std::move(line);
  }
}

void Elm327Link::takeData(const ElmLine& line) {
  auto message = assembler_.accept(line);
  if (!message) return;
  const auto& wanted = exchange_.address.source;
  if (wanted && message->source && message->source != wanted) {
    exchange_.attempt.others = true;
    return;
  }
  const ResponseClass kind = classifyResponse(exchange_.request, message->bytes);
  if (kind == ResponseClass::foreign) {
    exchange_.attempt.foreign = std::move(message->bytes);
    return;
  }
  noteAnswer(*message);
  exchange_.attempt.pending = kind == ResponseClass::pending;
  // On older buses an answer of other services may come in several messages.
  const bool counts = exchange_.request.front() == service::kCurrentData && !exchange_.attempt.pending;
  if (!message->source && counts) ++exchange_.attempt.unnamed;
  exchange_.attempt.wasPending = exchange_.attempt.wasPending || exchange_.attempt.pending;
  if (messages_.size() < kMostMessages) messages_.push_back(std::move(*message));
}

void Elm327Link::noteAnswer(const ElmMessage& message) {
  assembler_.confirm(message);
  exchange_.attempt.heard = clock_.now();
  if (!message.source) noteUnnamed();
  if (exchange_.attempt.answered) return;
  exchange_.attempt.answered = true;
  silences_ = 0;
  if (!adapter_.asksByDefault()) triedByDefault_ = true;  // an address reaches ECUs: no need to try without
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

/// The bus search is a functional request, so its responses are counted as well.
void Elm327Link::noteSearch() {
  const int answers = adapter_.unnamedAnswers();
  if (answers == 0 || unnamed_ == Unnamed::several) return;
  unnamed_ = answers > 1 ? Unnamed::several : Unnamed::one;
}

/// Whether responses of several ECUs could be taken for those of one.
bool Elm327Link::mayMix() const {
  if (exchange_.target.address == kFunctionalAddress) return false;
  if (unnamed_ == Unnamed::unseen || (unnamed_ == Unnamed::one && provenAlone_)) return false;
  const auto reach = reach_.find(exchange_.target.address);
  return exchange_.address.functional || reach == reach_.end() || !reach->second.apart;
}

bool Elm327Link::isMixed() const {
  if (!mayMix() || exchange_.attempt.unnamed == 0) return false;
  return exchange_.attempt.unnamed > 1 || (unnamed_ == Unnamed::several && exchange_.address.functional);
}

/// Tests physical addressing with a request that every ECU answers: some adapters accept the address and
/// ignore it.
bool Elm327Link::answersAlone(const LinkTarget& target) {
  if (reach_[target.address].apart) return true;
  finishAnswer();
  begin(target, kSupportedPids);
  if (exchange_.address.functional) return false;
  ask(false);
  // No longer than the adapter waits anyway: most addresses are silent.
  const auto wait = adapter_.timeout() * kElmTimeoutStep;
  const Moment deadline = clock_.now() + kAdapterTime + wait;
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
  const ElmNotice notice = exchange_.attempt.notice ? exchange_.attempt.notice->notice : ElmNotice::none;
  const std::int32_t address = exchange_.target.address;
  if (notice == ElmNotice::restarted) ElmAdapter::failRestarted();
  if (notice == ElmNotice::noConnection && !exchange_.attempt.answered)
    failWithoutEcu(console_, exchange_.attempt.notice->text);
  noteLine(exchange_.attempt.answered || exchange_.attempt.others || notice != ElmNotice::none ||
           !exchange_.attempt.foreign.empty());
  if (!exchange_.attempt.answered) {
    ++silences_;
    return;
  }
  noteWait();
  // The bus search is no proof, since an ECU may have been asleep; this response is.
  if (exchange_.attempt.unnamed == 1 && exchange_.attempt.expectedFrames == 0) provenAlone_ = true;
  if (exchange_.attempt.wasPending)
    frameCounts_.distrust(address, exchange_.request);
  else if (exchange_.tried.test(withoutFrameCount))
    frameCounts_.helpedWithout();
  else if (exchange_.attempt.expectedFrames > 0)
    frameCounts_.helped();
  else if (address != kFunctionalAddress && !assembler_.incomplete())
    frameCounts_.learn(address, exchange_.request, assembler_.frames());
}

void Elm327Link::noteWait() {
  const Attempt& attempt = exchange_.attempt;
  const auto reach = reach_.find(exchange_.target.address);
  if (reach == reach_.end() || attempt.wasPending) return;
  ElmWait& wait = reach->second.wait;
  wait.answered(attempt.heard - attempt.asked);
  const bool fullTime = attempt.expectedFrames == 0 && adapter_.timeout() >= kElmDefaultTimeout;
  if (fullTime) wait.waited(clock_.now() - std::max(attempt.heard, waitingSince_));
  if (exchange_.tried.test(usualTimeout)) wait.wasTooShort();
}

/// Whether anything that came over a raised line was what an adapter says.
void Elm327Link::noteLine(bool whole) {
  if (adapter_.isRaised()) lineFaults_ = whole ? std::max(0, lineFaults_ - 1) : lineFaults_ + kLineFault;
}

bool Elm327Link::isLineTooFast() const { return lineFaults_ > kMostLineFaults; }

void Elm327Link::distrustLine() {
  lineFaults_ = 0;
  adapter_.distrustRate();
}

/// After "response pending" the adapter no longer listens. Lines that come nevertheless are used; then the
/// request is sent again with the longest time-out.
bool Elm327Link::listenAfterPending(Moment deadline) {
  const Moment now = clock_.now();
  if (now >= deadline) return false;
  if (auto item = console_.next(std::min(deadline, now + kPendingPause))) {
    if (!item->prompt) take(std::move(item->line));
    return true;
  }
  if (clock_.now() >= deadline || !mayBeRepeated(exchange_.request)) return false;
  adapter_.setTimeout(kElmLongestTimeout);
  ask(false);
  return true;
}

std::string Elm327Link::silence() const {
  if (awaitsPrompt_) return {};
  if (!exchange_.attempt.foreign.empty()) return "what came is " + shortHexText(exchange_.attempt.foreign);
  if (!exchange_.attempt.notice && exchange_.attempt.others) return "only other ECUs answer";
  if (!exchange_.attempt.notice)
    return exchange_.attempt.anything ? "what came is no whole answer" : "the adapter says nothing";
  const ElmLine& line = *exchange_.attempt.notice;
  if (line.notice == ElmNotice::unknownCommand) return "the adapter does not understand the request";
  return "the adapter says " + (line.notice == ElmNotice::none ? quotedText(line.text) : line.text);
}

/// The emissions-related ECUs (ISO 15765-4) that can be addressed physically.
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

std::vector<LinkTarget> Elm327Link::doFindEcus() {
  constexpr auto kPatience = 3s;
  doSend({kFunctionalAddress, std::string(kObdName)}, kSupportedPids);
  std::vector<LinkTarget> ecus;
  const Moment deadline = clock_.now() + kPatience;
  ElmMessage message;
  while (nextMessage(message, deadline)) {
    const std::int32_t address = ecuAddressOf(message.source, assembler_.bus());
    const auto known = [&](const LinkTarget& ecu) { return ecu.address == address; };
    if (std::none_of(ecus.begin(), ecus.end(), known)) ecus.push_back({address, std::string(kObdName)});
  }
  const int unnamed = exchange_.attempt.unnamed;
  if (unnamed > 0 && unnamed_ != Unnamed::several) unnamed_ = unnamed > 1 ? Unnamed::several : Unnamed::one;
  if (unnamed_ == Unnamed::several) ecus = findEcusApart();
  // A single ECU needs no physical addressing; but on CAN, without headers, another one could go unnoticed.
  else if (ecus.size() == 1 && !(unnamed_ == Unnamed::one && isCan(adapter_.bus())))
    reach_[ecus.front().address].functional = true;
  if (ecus.empty()) {
    finishAnswer();
    failWithoutEcu(console_, exchange_.attempt.notice ? exchange_.attempt.notice->text : "");
  }
  std::ranges::sort(ecus, {}, &LinkTarget::address);
  return ecus;
}

std::size_t Elm327Link::mostIdentifiers(const LinkTarget& target) const {
  return takesSeveralPids(target) ? 3 : 1;
}

bool Elm327Link::takesSeveralPids(const LinkTarget&) const { return isCan(adapter_.bus()); }

}  // namespace tarnlog::host
