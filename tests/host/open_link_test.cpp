#include <gmock/gmock.h>

#include <array>
#include <utility>

#include "host/link/OpenLink.h"
#include "host/link/PatientLink.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/PeerStream.h"
#include "tests/support/Received.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;

class BrokenLink : public Link {
 public:
  bool works = false;
  void doOpen() override {
    if (!works) throw TarnError(1, "BrokenLink", "gone");
  }
  void doClose() override {}
  bool doSend(const LinkTarget& /*target*/, std::span<const std::uint8_t> /*request*/) override {
    return true;
  }
  Received doReceive(Bytes& /*response*/, std::chrono::milliseconds /*timeout*/) override {
    return Received::response;
  }
};

TEST(PatientLink, KeepsAttemptsApart) {
  test::ManualLinkClock clock;
  auto broken = std::make_unique<BrokenLink>();
  BrokenLink& car = *broken;
  PatientLink link(std::move(broken), clock);
  int idle = 0;
  link.setIdleHook([&] { ++idle; });
  const auto attempt = [&] {
    const Moment before = clock.now();
    skipOnFailure([&] { link.open(); });
    return (clock.now() - before) / 1ms;
  };
  EXPECT_EQ(attempt(), 0);
  EXPECT_EQ(attempt(), 250);
  EXPECT_EQ(attempt(), 500);
  EXPECT_EQ(attempt(), 1000);
  EXPECT_EQ(attempt(), 2000);
  EXPECT_EQ(attempt(), 2000);
  EXPECT_GE(idle, 5750 / 20);
  car.works = true;
  EXPECT_EQ(attempt(), 2000);
  Link::Bytes response;
  test::received(link, response, std::chrono::milliseconds(1));
  EXPECT_EQ(attempt(), 0);
}

TEST(Links, NoWaitOutlastsAWishToEnd) {
  test::ManualLinkClock clock;
  /// Milliseconds until a step ends when somebody wants to end all along.
  const auto timeOf = [&](Link& link, const std::function<void()>& step) {
    link.setStopQuestion([] { return true; });
    const Moment before = clock.now();
    EXPECT_THROW(step(), TarnError);
    return (clock.now() - before) / 1ms;
  };
  bool grants = false;
  const auto gateway = [&](std::string_view) {
    const auto granted = *bytesFromHex("02 FD 00 06 00 00 00 09 0E 00 10 01 10 00 00 00 00");
    return std::exchange(grants, false) ? std::string(granted.begin(), granted.end()) : std::string();
  };
  DoipLink doip(
      {.host = "car", .ecu = {}},
      [&](const std::string&, std::uint16_t) { return std::make_unique<test::PeerStream>(gateway, clock); },
      clock);
  EXPECT_LE(timeOf(doip, [&] { doip.open(); }), 600) << "the activation";
  grants = true;
  doip.open();
  Link::Bytes response;
  const std::array<std::uint8_t, 2> request{0x21, 0x80};
  const auto ask = [&](Link& link) {
    link.send({18, "UDS"}, request);
    test::received(link, response, std::chrono::milliseconds(10'000));
  };
  EXPECT_LE(timeOf(doip, [&] { ask(doip); }), 600);
  EXPECT_LE(timeOf(doip, [&] { doip.findEcus(); }), 600);

  test::ScriptedPeer mute;
  SimulatedLink simulated(clock, mute);
  simulated.open();
  EXPECT_LE(timeOf(simulated, [&] { ask(simulated); }), 600);

  PatientLink patient(std::make_unique<BrokenLink>(), clock);
  for (int i = 0; i < 5; ++i) skipOnFailure([&] { patient.open(); });
  EXPECT_LE(timeOf(patient, [&] { patient.open(); }), 100);
}

TEST(OpenLink, RefusesWhatNamesNoLink) {
  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  files.files["t.trace"] = "# tarnlog trace 1\n0.0 > 1 - 3E\n";
  const auto refusal = [&](const std::string& url) {
    return test::failureOf([&] { openLink(url, clock, files); });
  };
  for (const char* url :
       {"doip://*", "doip://car.local:13401?ecu=0x1001&tester=0x0E80", "isotp://can0",
        "isotp://can0?tx=7E0&rx=0x7E8", "isotp://can1?tx=18DA10F1&rx=18DAF110", "replay:t.trace",
        "elm327:///dev/ttyUSB0", "elm327:///dev/ttyUSB0?baud=115200&protocol=A",
        "elm327://box:35000?protocol=0", "elm327://[::1]"})
    EXPECT_EQ(refusal(url), "none") << url;
  for (const char* url : {"doip://", "doip://car?ecu=0x10001", "isotp://", "isotp://can0?tx=7E0",
                          "isotp://can0?tx=xyz&rx=1", "isotp://can0?baud=1", "replay:", "smoke://signals",
                          "elm327:", "elm327:///", "elm327:///dev/x?baud=38401", "elm327://box?baud=38400",
                          "elm327://box/x", "elm327://box?protocol=D", "elm327://box:0"})
    EXPECT_THAT(refusal(url), testing::AllOf(testing::StartsWith("link " + std::string(url)),
                                             testing::HasSubstr("expected")));
  EXPECT_THAT(refusal("replay:none.trace"), testing::HasSubstr("none.trace"));
}

}  // namespace
}  // namespace tarnlog::host
