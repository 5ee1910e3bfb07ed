// What an adapter may send. The first byte chooses a kind of bus; the rest are answers, each behind a byte
// with its length. They are read by the parser alone, and then by a link that asks while they come.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "host/link/elm/Elm327Link.h"
#include "platform/base/TarnError.h"
#include "tests/support/Asking.h"
#include "tests/support/PeerStream.h"

namespace {

using namespace tarnlog;
using namespace tarnlog::host;

constexpr std::size_t kLongestMessage = 4095;

void require(bool holds) {
  if (!holds) std::abort();
}

/// The next answer, taken off the input.
std::string_view takeAnswer(std::string_view& input) {
  if (input.empty()) return {};
  const auto length = std::min<std::size_t>(static_cast<std::uint8_t>(input[0]), input.size() - 1);
  const std::string_view answer = input.substr(1, length);
  input.remove_prefix(1 + length);
  return answer;
}

void parse(ElmBus bus, std::string_view input) {
  ElmReader reader;
  ElmAssembler assembler;
  assembler.setBus(bus);
  while (!input.empty()) {
    const std::string_view answer = takeAnswer(input);
    reader.feed({reinterpret_cast<const std::uint8_t*>(answer.data()), answer.size()});
    while (const auto item = reader.next()) {
      require(item->text.size() <= ElmReader::kLongestLine);
      const auto message = assembler.accept(parseElmLine(item->text));
      require(!message || message->bytes.size() <= kLongestMessage);
      if (item->prompt) assembler.reset();
    }
  }
}

/// Whatever comes, every step ends within two minutes of the link's clock, by an answer, without, or failing.
void converse(char protocol, std::string_view input) {
  constexpr std::chrono::minutes kTwoMinutes{2};
  test::ManualLinkClock clock;
  const auto answer = [&](std::string_view line) -> std::string {
    if (line.starts_with("ATZ")) return "ELM327 v1.5\r>";
    return line.starts_with("AT") ? "OK\r>" : std::string(takeAnswer(input));
  };
  const auto fixed = protocol == '0' ? std::nullopt : std::optional(protocol);
  Elm327Link link(std::make_unique<test::PeerStream>(answer, clock), fixed, clock);
  bool open = false;
  while (!input.empty()) {
    const Moment before = clock.now();
    const std::size_t left = input.size();
    open = skipOnFailure([&] {
      if (!open) link.open();
      const Link::Bytes request{0x01, 0x0C};
      link.send({0x7E0, "OBD-II"}, request);
      Link::Bytes response;
      while (test::received(link, response, std::chrono::milliseconds(1000)))
        require(response.size() <= kLongestMessage && response.size() >= 2);
    });
    require(clock.now() - before < kTwoMinutes);
    const bool refusedUnasked = input.size() == left;  // ECUs that cannot be told apart are not asked again
    if (input.size() < 2 || refusedUnasked) break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
  constexpr std::string_view kProtocols = "0123456789ABC";
  const char protocol = kProtocols[data[0] % kProtocols.size()];
  parse(busOfProtocol(protocol), input);
  converse(protocol, input);
  return 0;
}
