#include "host/link/elm/ElmBusSearch.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <array>

#include "host/link/elm/ElmSetup.h"
#include "host/service/ResponseCheck.h"

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kCommandPatience = 2s;
/// Ten protocols, three of them with an initialisation of seconds.
constexpr auto kSearchPatience = 40s;
constexpr auto kProtocolPatience = 10s;
constexpr std::array<std::uint8_t, 1> kTesterPresent{service::kTesterPresent};

std::string digits(std::span<const std::uint8_t> request) {
  return fmt::format("{:02X}", fmt::join(request, ""));
}

bool isProtocol(char c) { return (c >= '1' && c <= '9') || (c >= 'A' && c <= 'C'); }

/// What ATDP says in words, where ATDPN is not known: "AUTO, ISO 15765-4 (CAN 11/500)".
char protocolOfWords(std::string_view text) {
  const auto says = [&](std::string_view word) { return text.find(word) != std::string_view::npos; };
  if (says("15765") || says("CAN")) {
    const bool slow = says("250");
    if (says("29")) return slow ? '9' : '7';
    return slow ? '8' : '6';
  }
  if (says("14230") || says("KWP")) return says("5 BAUD") ? '4' : '5';
  if (says("9141")) return '3';
  if (says("PWM")) return '1';
  return says("VPW") ? '2' : '0';
}

}  // namespace

ElmBus busOfProtocol(char number) {
  switch (number) {
    case '1':
    case '2':
      return ElmBus::j1850;
    case '3':
      return ElmBus::iso9141;
    case '4':
    case '5':
      return ElmBus::kwp;
    case '6':
    case '8':
    case 'B':
    case 'C':
      return ElmBus::can11;
    case '7':
    case '9':
    case 'A':
      return ElmBus::can29;
    default:
      return ElmBus::unknown;
  }
}

ElmBusSearch::Outcome ElmBusSearch::ask(std::span<const std::uint8_t> request,
                                        std::chrono::milliseconds patience, ElmBus& bus) {
  const ElmReply reply = console_.command(digits(request), patience);
  ElmAssembler assembler;
  assembler.setBus(bus);
  Outcome outcome = reply.prompted ? Outcome::silent : Outcome::noBus;
  if (!reply.prompted) why_ = kNoPrompt;
  int unnamed = 0;
  for (const ElmLine& line : reply.lines) {
    const auto message = assembler.accept(line);
    if (message && reply.prompted && isAnswerTo(request, message->bytes)) {
      outcome = Outcome::answered;
      if (!message->source) ++unnamed;
    }
    if (line.notice == ElmNotice::working || line.notice == ElmNotice::none) continue;
    why_ = line.text;
    if (line.notice != ElmNotice::noData && outcome == Outcome::silent) outcome = Outcome::noBus;
  }
  bus = assembler.bus();
  unnamed_ = unnamed;
  return outcome;
}

char ElmBusSearch::protocolInUse() {
  const ElmReply number = console_.command("ATDPN", kCommandPatience);
  std::string_view text = number.text();
  if (text.size() == 2 && text[0] == 'A') text.remove_prefix(1);
  if (text.size() == 1 && isProtocol(text[0])) return text[0];
  return protocolOfWords(console_.command("ATDP", kCommandPatience).text());
}

bool ElmBusSearch::searchByAdapter(ElmProtocol& found) {
  if (known_ != '0') {
    found = choose(known_);
    if (ask(kSupportedPids, kProtocolPatience, found.bus) == Outcome::answered) return true;
  }
  found = choose('0');
  Outcome outcome = ask(kSupportedPids, kSearchPatience, found.bus);
  if (outcome == Outcome::silent && !patient_) {
    patient_ = true;
    console_.command(elmTimeoutCommand(kElmLongestTimeout), kCommandPatience);
    outcome = ask(kSupportedPids, kSearchPatience, found.bus);
  }
  if (outcome != Outcome::answered) return false;
  found.number = protocolInUse();
  const ElmBus told = busOfProtocol(found.number);
  if (found.bus == ElmBus::unknown || (told != ElmBus::unknown && !isCan(told) && !isCan(found.bus)))
    found.bus = told;
  else if (told != found.bus)
    found.number = '0';  // some always tell the same; frames do not lie
  return true;
}

bool ElmBusSearch::searchOneByOne(ElmProtocol& found) {
  for (const char number : std::string_view("678954321")) {
    found = choose(number);
    if (ask(kSupportedPids, kProtocolPatience, found.bus) == Outcome::answered) return true;
  }
  return false;
}

ElmProtocol ElmBusSearch::find() {
  why_.clear();
  ElmProtocol found;
  const bool answered = oneByOne_ ? searchOneByOne(found) : searchByAdapter(found);
  if (!answered) {
    oneByOne_ = !oneByOne_;
    known_ = '0';
    failWithoutEcu(console_, why_);
  }
  known_ = found.number;
  return found;
}

ElmProtocol ElmBusSearch::choose(char number) {
  console_.command(fmt::format("ATSP{}", number), kCommandPatience);
  return {number, busOfProtocol(number)};
}

ElmProtocol ElmBusSearch::findOnKLine(const ElmAddress& address) {
  why_.clear();
  for (const char number : {'5', '4'}) {
    ElmProtocol found = choose(number);
    console_.command("ATSH" + address.header, kCommandPatience);
    if (number == '4' && address.source)
      console_.command(fmt::format("ATIIA{:02X}", *address.source), kCommandPatience);
    // Starts the communication, and nothing else. An ECU that says nothing about it was reached all the same.
    const Outcome outcome = ask(kTesterPresent, kProtocolPatience, found.bus);
    unnamed_ = 0;  // one was asked alone
    if (outcome != Outcome::noBus) return found;
  }
  failWithoutEcu(console_, why_);
}

}  // namespace tarnlog::host
