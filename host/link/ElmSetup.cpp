#include "host/link/ElmSetup.h"

#include <fmt/format.h>

#include <array>

#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kMillisecond = 1000;
constexpr std::int64_t kQuiet = 30 * kMillisecond;
constexpr std::int64_t kResetPatience = 4000 * kMillisecond;
constexpr std::int64_t kNextResetPatience = 2000 * kMillisecond;
constexpr std::int64_t kCommandPatience = 2000 * kMillisecond;
constexpr int kAttempts = 3;

[[noreturn]] void fail(std::string_view text) { throw TarnError(1, "Elm327Link", std::string(text)); }

/// A reset that finds the adapter at work only interrupts that work: it is asked for again until the name
/// comes. An adapter that has no name is taken as it is.
void reset(ElmConsole& console, ElmReset kind) {
  const bool restart = kind == ElmReset::restart;
  const ElmNotice done = restart ? ElmNotice::restarted : ElmNotice::ok;
  console.drop(kQuiet, 10 * kQuiet);
  bool prompted = false;
  bool anything = false;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const ElmReply reply =
        console.command(restart ? "ATZ" : "ATD", attempt == 0 ? kResetPatience : kNextResetPatience);
    prompted = prompted || reply.prompted;
    anything = anything || reply.anything;
    if (reply.prompted && reply.has(done)) return;
  }
  if (prompted) return;
  fail(anything ? "what answers here is no ELM327, or it never finishes an answer: is it the right port and "
                  "baud rate?"
                : "the adapter does not answer: has it power, is it the right port and baud rate?");
}

/// A setting that an adapter does not know ("?") is gone on without.
ElmReply set(ElmConsole& console, std::string_view command) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    ElmReply reply = console.command(command, kCommandPatience);
    if (reply.prompted) return reply;
  }
  fail(fmt::format("the adapter stopped answering at its setting {}", command));
}

/// False when the adapter has started again meanwhile.
bool settle(ElmConsole& console) {
  // ATM0: what is chosen for this car need not wear out the adapter's memory.
  constexpr std::array<std::string_view, 6> kSettings{"ATL0", "ATS0", "ATM0", "ATH1", "ATAT1", "ATCAF1"};
  for (const std::string_view command : kSettings)
    if (set(console, command).has(ElmNotice::restarted)) return false;
  return !set(console, elmTimeoutCommand(kElmDefaultTimeout)).has(ElmNotice::restarted);
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

std::string setUpElm(ElmConsole& console, ElmReset kind) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    reset(console, kind);
    // The echo goes first: with it, everything else comes twice.
    if (set(console, "ATE0").has(ElmNotice::restarted)) continue;
    const ElmReply identification = set(console, "ATI");
    if (settle(console)) return std::string(identification.text());
  }
  fail("the adapter starts again and again: is its supply weak, or its plug loose?");
}

void failWithoutEcu(ElmConsole& console, std::string_view why) {
  const std::string voltage = voltageText(console);
  fail(fmt::format("no ECU answers{}{}: is the ignition on?", why.empty() ? "" : fmt::format(" ({})", why),
                   voltage.empty() ? "" : ", the socket has " + voltage));
}

}  // namespace tarnlog::host
