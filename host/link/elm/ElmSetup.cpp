#include "host/link/elm/ElmSetup.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kQuiet = 30ms;
// Together less than 8 s: longer nobody waits for an adapter that says nothing.
constexpr std::array kResetPatience{3500ms, 1500ms, 1500ms};
constexpr auto kLastPatience = 500ms;
constexpr auto kCommandPatience = 2s;
constexpr int kAttempts = 3;
constexpr const char* kRightPort = "is it the right port and baud rate?";

[[noreturn]] void fail(std::string_view text) { throw TarnError(1, "Elm327Link", std::string(text)); }

/// Sets an adapter up. Until it has answered like one, nobody knows that it is one.
class Setup {
 public:
  Setup(ElmConsole& console, ElmRate& rate, ElmReset kind) : console_(console), rate_(rate), kind_(kind) {}
  std::string run();
  bool identified() const { return identified_; }
  [[noreturn]] void failForeign() const;

 private:
  void reset();
  ElmReply set(std::string_view command);
  bool settle();

  ElmConsole& console_;
  ElmRate& rate_;
  ElmReset kind_;
  bool identified_ = false;
  bool prompted_ = false;
};

void Setup::failForeign() const {
  fail(fmt::format("what answers here is no ELM327 adapter{}; it said {}: {}",
                   prompted_ ? "" : ", or never finishes an answer", quotedText(console_.said()),
                   kRightPort));
}

/// What comes at a wrong rate is none.
bool isText(const ElmReply& reply) {
  const auto plain = [](char c) { return c >= ' ' && c <= '~'; };
  return std::all_of(reply.lines.begin(), reply.lines.end(), [&](const ElmLine& line) {
    return std::all_of(line.text.begin(), line.text.end(), plain);
  });
}

/// A reset that finds the adapter at work only interrupts that work: it is asked for again until the name
/// comes. An adapter that has no name is taken as it is.
void Setup::reset() {
  const bool restart = kind_ == ElmReset::restart;
  rate_.leave();
  bool searched = false;
  console_.drop(kQuiet, 10 * kQuiet);
  for (const auto patience : kResetPatience) {
    const ElmReply reply = console_.command(restart ? "ATZ" : "ATD", patience);
    prompted_ = prompted_ || reply.prompted;
    identified_ = reply.prompted && reply.has(restart ? ElmNotice::restarted : ElmNotice::ok);
    if (identified_) return;
    const bool sensible = reply.prompted && isText(reply);
    if (!sensible && !std::exchange(searched, true)) rate_.find();
  }
  if (prompted_) return;
  // Servers of other kinds speak once a line ends in their way.
  if (console_.said().empty()) console_.command("\n\n", kLastPatience);
  if (!console_.said().empty()) failForeign();
  fail(fmt::format("the adapter does not answer: has it power, {}", kRightPort));
}

/// A setting that an adapter does not know ("?") is gone on without.
ElmReply Setup::set(std::string_view command) {
  for (int attempt = 0; attempt < (identified_ ? kAttempts : 1); ++attempt) {
    ElmReply reply = console_.command(command, kCommandPatience);
    const bool word =
        reply.lines.size() == 1 && (reply.has(ElmNotice::ok) || reply.has(ElmNotice::unknownCommand));
    identified_ = identified_ || (reply.prompted && word);
    if (reply.prompted) return reply;
  }
  if (!identified_) failForeign();
  fail(fmt::format("the adapter stopped answering at its setting {}", command));
}

/// False when the adapter has started again meanwhile.
bool Setup::settle() {
  // ATM0: what is chosen for this car need not wear out the adapter's memory.
  constexpr std::array<std::string_view, 6> kSettings{"ATL0", "ATS0", "ATM0", "ATH1", "ATAT1", "ATCAF1"};
  for (const std::string_view command : kSettings)
    if (set(command).has(ElmNotice::restarted)) return false;
  return !set(elmTimeoutCommand(kElmDefaultTimeout)).has(ElmNotice::restarted);
}

std::string Setup::run() {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    reset();
    // The echo goes first: with it, everything else comes twice.
    if (set("ATE0").has(ElmNotice::restarted)) continue;
    const ElmReply identification = set("ATI");
    if (!identified_) set("ATE0");
    if (!identified_) failForeign();
    if (!rate_.raise(identification.text()) || !settle()) continue;
    return std::string(identification.text());
  }
  fail("the adapter starts again and again: is its supply weak, or its plug loose?");
}

/// Like "12.3V"; empty when the adapter does not measure it.
std::string voltageText(ElmConsole& console) {
  const ElmReply reply = console.command("ATRV", kCommandPatience);
  const std::string_view text = reply.text();
  const bool isVoltage = text.find_first_not_of("0123456789. ") + 1 == text.size() && text.ends_with('V');
  return isVoltage ? std::string(text) : std::string();
}

}  // namespace

std::string elmTimeoutCommand(int steps) { return fmt::format("ATST{:02X}", steps); }

std::string setUpElm(ElmConsole& console, ElmRate& rate, ElmReset kind) {
  Setup setup(console, rate, kind);
  try {
    return setup.run();
  } catch (const AdapterGone&) {
    // Some end the connection when they restart; what ends it at any command is something else.
    if (kind == ElmReset::defaults && !setup.identified() && !console.said().empty()) setup.failForeign();
    throw;
  }
}

void failWithoutEcu(ElmConsole& console, std::string_view why) {
  if (why == kNoPrompt) fail("the adapter does not finish its answer: it sends no prompt");
  const std::string voltage = voltageText(console);
  const std::string said =
      (why.empty() ? "" : fmt::format(" ({})", why)) + (voltage.empty() ? "" : ", the socket has " + voltage);
  switch (parseElmLine(why).notice) {
    case ElmNotice::busTrouble:
      fail(
          fmt::format("the adapter has trouble with the car's bus{}: is it the right protocol, does the plug "
                      "sit firmly?",
                      said));
    case ElmNotice::damaged:
      fail(fmt::format("the adapter loses what comes over the car's bus{}: another adapter may keep up",
                       said));
    case ElmNotice::unknownCommand:
      fail(fmt::format("the adapter does not understand OBD requests{}: another adapter may", said));
    default:
      fail(fmt::format("no ECU answers{}: is the ignition on?", said));
  }
}

}  // namespace tarnlog::host
