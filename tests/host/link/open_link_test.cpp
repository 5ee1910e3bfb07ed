#include <gmock/gmock.h>

#include <utility>
#include <vector>

#include "host/link/LinkUrl.h"
#include "host/link/OpenLink.h"
#include "host/link/PatientLink.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/trace/SimulatedLink.h"
#include "platform/base/TarnError.h"
#include "tests/support/Asking.h"
#include "tests/support/DoipPeer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/PeerStream.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Links, NoWaitOutlastsAWishToEnd) {
  test::ManualLinkClock clock;
  /// Milliseconds until a step ends when somebody wants to end all along.
  const auto timeOf = [&](Link& link, const std::function<void()>& step) {
    link.setStopQuestion([] { return true; });
    const Moment before = clock.now();
    EXPECT_THROW(step(), TarnError);
    return (clock.now() - before) / 1ms;
  };
  test::DoipPeer peer;
  int messages = 0;  // that the gateway takes before it falls silent
  const auto gateway = [&](std::string_view bytes) {
    return messages-- > 0 ? peer.accept(bytes) : std::string();
  };
  DoipLink doip(
      {.host = "car", .ecu = {}},
      [&](const std::string&, std::uint16_t) { return std::make_unique<test::PeerStream>(gateway, clock); },
      clock);
  EXPECT_LE(timeOf(doip, [&] { doip.open(); }), 600) << "the activation";
  messages = 1;
  doip.open();
  const auto ask = [&](Link& link) {
    Link::Bytes response;
    link.send({18, "UDS"}, *bytesFromHex("21 80"));
    test::received(link, response, milliseconds(10'000));
  };
  EXPECT_LE(timeOf(doip, [&] { ask(doip); }), 600);
  EXPECT_LE(timeOf(doip, [&] { doip.findEcus(); }), 600);

  test::ScriptedPeer mute;
  SimulatedLink simulated(clock, mute);
  simulated.open();
  EXPECT_LE(timeOf(simulated, [&] { ask(simulated); }), 600);

  struct : test::ScriptedPeer {
    void start() override { throw TarnError(1, "Link", "gone"); }
  } broken;
  PatientLink patient(std::make_unique<SimulatedLink>(clock, broken), clock);
  for (int i = 0; i < 5; ++i) skipOnFailure([&] { patient.open(); });
  EXPECT_LE(timeOf(patient, [&] { patient.open(); }), 100);
}

TEST(LinkUrl, UnderstandsWhatPeopleType) {
  struct Case {
    const char* url;
    const char* parts;  ///< scheme|host|port|path
  };
  const Case cases[] = {
      {"elm327:///dev/ttyUSB0?baud=38400&protocol=6", "elm327||0|/dev/ttyUSB0"},
      {"ELM327:///dev/ttyUSB0", "elm327||0|/dev/ttyUSB0"},
      {"/dev/pts/1?baud=9600", "elm327||0|/dev/pts/1"},
      {" 192.168.0.10\n", "elm327|192.168.0.10|0|"},
      {"adapter:35000?protocol=6", "elm327|adapter|35000|"},
      {"doip://[fe80::1]:13400?ecu=0x1001", "doip|fe80::1|13400|"},
      {"replay:traces/cold start.txt", "replay||0|traces/cold start.txt"},
      {"Replay:Drive.trace", "replay||0|Drive.trace"},
      {"replay:2026", "replay||0|2026"},
  };
  for (const auto& [text, parts] : cases) {
    const LinkUrl url(text);
    EXPECT_EQ(
        url.scheme() + "|" + url.host() + "|" + std::to_string(url.port().value_or(0)) + "|" + url.path(),
        parts);
  }
  EXPECT_EQ(LinkUrl("192.168.0.10:35000").text(), "elm327://192.168.0.10:35000");
}

TEST(OpenLink, RefusesWhatNamesNoLinkWithThePlaceAndWhatIsExpectedThere) {
  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  files.files["t.trace"] = "# tarnlog trace 1\n0.0 > 1 - 3E\n";
  const auto refusal = [&](const std::string& url) {
    return test::failureOf([&] { openLink(url, clock, files); });
  };
  for (const char* url :
       {"doip://*", "doip://car.local:13401?ecu=0x1001&tester=0x0E80", "isotp://can0",
        "isotp://can0?tx=7E0&rx=0x7E8", "isotp://can1?tx=18DA10F1&rx=18DAF110", "replay:t.trace",
        "elm327:///dev/ttyUSB0?fast=0", "elm327:///dev/ttyUSB0?baud=115200&protocol=A&fast=1",
        "elm327://box:35000?protocol=0", "elm327://[::1]"})
    EXPECT_EQ(refusal(url), "none") << url;
  const std::pair<std::string, const char*> cases[] = {
      {"doip://", "host: expected"},
      {"doip://car?ecu=0x10001", "ecu: expected a number from 1 to 65535, found \"0x10001\""},
      {"isotp://", "interface: expected"},
      {"isotp://can0?tx=7E0", "rx: expected both"},
      {"isotp://can0?tx=xyz&rx=1", "tx: expected"},
      {"isotp://can0?baud=1", "options: expected tx, rx, parallel, bundle, found \"baud\""},
      {"replay:", "path: expected"},
      {"smoke://signals", "kind: expected"},
      {"/tmp/x", "beginning: expected a kind of link and a colon, like elm327: or replay:, found \"/tmp/x\""},
      {"elm327:", "port: expected"},
      {"elm327:///", "port: expected"},
      {"elm327:///dev/x?baud=38401", "baud: expected"},
      {"elm327:///dev/x?baud=", "baud: expected a number from 1 to 2000000, found nothing"},
      {"elm327:///dev/x?baud=38400&baud=9600", "baud: expected this option once, found \"9600\""},
      {"elm327:///dev/x?fast=no", "fast: expected a number from 0 to 1, found \"no\""},
      {"elm327://box?baud=38400", "baud: expected"},
      {"elm327://box/x", "path: expected"},
      {"elm327://box?protocol=D", "protocol: expected"},
      {"elm327://box:0", "port: expected"},
      {"elm327://box:many", "port: expected a number from 1 to 65535, found \"many\""},
  };
  for (const auto& [url, says] : cases) EXPECT_THAT(refusal(url), StartsWith("link " + url + ": " + says));
  for (const char* const port : {"COM3", "com12:", "elm327://COM3", "elm327:COM3?baud=9600"})
    EXPECT_THAT(refusal(port), HasSubstr("as this is no Windows"));
  EXPECT_THAT(refusal("replay:none.trace"), HasSubstr("none.trace"));
}

}  // namespace
}  // namespace tarnlog::host
