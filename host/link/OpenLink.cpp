#include "host/link/OpenLink.h"

#include <charconv>
#include <utility>

#include "host/link/LinkUrl.h"
#include "host/link/PatientLink.h"
#include "host/link/can/IsoTpLink.h"
#include "host/link/can/SocketCan.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/elm/Elm327Link.h"
#include "host/link/stream/SerialStream.h"
#include "host/link/stream/TcpStream.h"
#include "host/link/stream/TextTap.h"
#include "host/link/trace/ReplayPeer.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/link/trace/Trace.h"
#include "host/service/Services.h"

namespace tarnlog::host {
namespace {

class ReplayLink : private ReplayPeer, public SimulatedLink {
 public:
  ReplayLink(std::vector<TraceEntry> entries, const std::string& file, LinkClock& clock,
             const PidBytes& pidBytes, const LinkHabits& habits)
      : ReplayPeer(std::move(entries), file, pidBytes),
        SimulatedLink(clock, static_cast<ReplayPeer&>(*this), habits) {}
  bool takesSeveralPids(const LinkTarget& target) const override {
    return asksSeveral(target, service::kCurrentData, 2);
  }
  /// As many as the drive was made with: asked for otherwise, they would not come as the car gave them.
  std::size_t mostIdentifiers(const LinkTarget& target) const override {
    return asksSeveral(target, service::kReadDataByIdentifier, 3) ? SimulatedLink::mostIdentifiers(target)
                                                                  : 1;
  }

 protected:
  std::vector<LinkTarget> doFindEcus() override { return obdEcus(); }
};

std::unique_ptr<Link> replay(const LinkUrl& url, LinkClock& clock, const FileSystem& files,
                             const PidBytes& pidBytes) {
  url.allowOptions({"parallel", "bundle"});
  const std::string& file = url.path();
  if (file.empty()) url.expected("path", "the file of a trace", file);
  return std::make_unique<ReplayLink>(parseTrace(files.readAll(file), file), file, clock, pidBytes,
                                      linkHabits(url));
}

std::unique_ptr<Link> doip(const LinkUrl& url, LinkClock& clock) {
  constexpr std::int64_t kHighestAddress = 0xFFFF;
  url.allowOptions({"ecu", "tester", "parallel", "bundle"});
  if (url.host().empty()) url.expected("host", "a name, an address, or * to look for a car", url.host());
  DoipSettings settings;
  settings.host = url.host();
  settings.port = url.port().value_or(kDoipPort);
  if (const auto tester = url.numberOption("tester", 1, kHighestAddress))
    settings.tester = static_cast<std::uint16_t>(*tester);
  if (const auto ecu = url.numberOption("ecu", 1, kHighestAddress))
    settings.ecu = static_cast<std::uint16_t>(*ecu);
  settings.sideBySide = linkHabits(url).sideBySide;
  const auto connect = [&clock](const std::string& host, std::uint16_t port) {
    return std::make_unique<TcpStream>(host, port, clock);
  };
  return std::make_unique<PatientLink>(std::make_unique<DoipLink>(std::move(settings), connect, clock), clock,
                                       linkHabits(url).bundles);
}

std::unique_ptr<ByteStream> elm327Stream(const LinkUrl& url, LinkClock& clock) {
  constexpr std::uint16_t kUsualPort = 35000;
  constexpr int kUsualBaud = 38400;
  constexpr int kHighestBaud = 2000000;
  const auto baud = url.numberOption("baud", 1, kHighestBaud);
  if (url.host().empty()) {
    if (url.path().size() < 2)
      url.expected("port", "a serial port like /dev/ttyUSB0, or host:port", url.path());
    if (baud && !SerialStream::isBaudRate(*baud))
      url.expected("baud", "a usual rate like 9600, 38400 or 115200", std::to_string(*baud));
    return std::make_unique<SerialStream>(url.path(), static_cast<int>(baud.value_or(kUsualBaud)), clock);
  }
  if (url.path().size() > 1) url.expected("path", "nothing behind host and port", url.path());
  if (baud) url.expected("baud", "a baud rate for serial ports only", std::to_string(*baud));
  return std::make_unique<TcpStream>(url.host(), url.port().value_or(kUsualPort), clock);
}

std::unique_ptr<Link> elm327(const LinkUrl& url, LinkClock& clock) {
  url.allowOptions({"baud", "protocol", "fast", "bundle"});
  std::optional<char> protocol;
  if (const std::string* const text = url.option("protocol")) {
    const bool known =
        text->size() == 1 && std::string_view("0123456789ABC").find(*text) != std::string::npos;
    if (!known) url.expected("protocol", "one digit from 0 (search) to 9, or A to C", *text);
    if (*text != "0") protocol = text->front();
  }
  const bool mayBeFaster = url.numberOption("fast", 0, 1).value_or(1) == 1;
  auto stream = std::make_unique<TextTap>(elm327Stream(url, clock));
  TextTap& tap = *stream;
  auto link = std::make_unique<Elm327Link>(std::move(stream), protocol, clock, mayBeFaster);
  tap.tellTo(*link);
  return std::make_unique<PatientLink>(std::move(link), clock, linkHabits(url).bundles);
}

/// CAN identifiers are written in hexadecimal, with or without 0x.
std::optional<std::uint32_t> identifier(const LinkUrl& url, const char* name) {
  constexpr std::uint32_t kHighest = 0x1FFFFFFF;
  const std::string* const text = url.option(name);
  if (text == nullptr) return {};
  const std::string_view digits = std::string_view(*text).substr(text->starts_with("0x") ? 2 : 0);
  std::uint32_t id = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), id, 16);
  if (error != std::errc() || end != digits.data() + digits.size() || id > kHighest)
    url.expected(name, "a CAN identifier in hexadecimal, up to 1FFFFFFF", *text);
  return id;
}

std::unique_ptr<Link> isoTp(const LinkUrl& url, LinkClock& clock) {
  url.allowOptions({"tx", "rx", "parallel", "bundle"});
  const std::string& interface = url.host();
  if (interface.empty()) url.expected("interface", "a CAN interface like can0", interface);
  const auto transmit = identifier(url, "tx");
  const auto receive = identifier(url, "rx");
  if (transmit.has_value() != receive.has_value())
    url.expected(transmit ? "rx" : "tx", "both tx and rx, or none of them", "");
  if (transmit && *transmit == *receive) url.expected("rx", "another identifier than tx", *url.option("rx"));
  const auto pair = transmit ? std::optional(CanPair{*transmit, *receive}) : std::nullopt;
  const auto connect = [interface, &clock] { return makeSocketCanPort(interface, clock); };
  const LinkHabits habits = linkHabits(url);
  return std::make_unique<PatientLink>(std::make_unique<IsoTpLink>(pair, connect, clock, habits.sideBySide),
                                       clock, habits.bundles);
}

}  // namespace

LinkHabits linkHabits(const LinkUrl& url) {
  const auto isOn = [&](const char* name) { return url.numberOption(name, 0, 1).value_or(1) == 1; };
  return {.sideBySide = isOn("parallel"), .bundles = isOn("bundle")};
}

std::unique_ptr<Link> openLink(const std::string& url, LinkClock& clock, const FileSystem& files,
                               const PidBytes& pidBytes) {
  const LinkUrl link(url);
  if (link.scheme() == "elm327") return elm327(link, clock);
  if (link.scheme() == "doip") return doip(link, clock);
  if (link.scheme() == "isotp") return isoTp(link, clock);
  if (link.scheme() == "replay") return replay(link, clock, files, pidBytes);
  link.expected("kind", "elm327, doip, isotp or replay", link.scheme());
}

}  // namespace tarnlog::host
