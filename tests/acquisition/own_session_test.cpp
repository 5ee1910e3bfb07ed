#include <gmock/gmock.h>

#include <limits>

#include "config/AddDatum.h"
#include "platform/ferrox3/OwnSession.h"
#include "tests/support/FailureOf.h"
#include "tests/support/RecorderParts.h"

namespace tarnlog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Records with a "Torque" and a "Temperature" that the test decides.
struct Bench : test::RecorderParts {
  Bench() {
    UserLocale locale;
    locale.decimalSeparator = ',';
    session = std::make_unique<ferrox3::OwnSession>(locale);
    session->add("Bench", "Sensors", {{"Torque", "Nm", 0, 400}, {"Temperature"}}, [this] { return values; });
    parameters->fileFolder = "/rec";
    parameters->recordingPeriod = 0;
    offered = BuildSessionDocument(*session);
    add("Torque");
    add("Temperature");
    acq = std::make_unique<TarnAcq>(screen, AcqEnvironment{clock, timer, files, locale, {}});
    acq->setSession(session.get());
  }
  oTarnScope& add(const std::string& data) {
    return addDatum(*parameters, offered, "Bench", "Sensors", data);
  }

  std::vector<double> values{200.5, 21};
  std::unique_ptr<ferrox3::OwnSession> session;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  SessionDocument offered;
  std::unique_ptr<TarnAcq> acq;
};

TEST(OwnSession, ValuesOfAProgramAreRecorded) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  Bench bench;
  bench.acq->StartReadingData(bench.parameters);
  bench.tickUntil(*bench.acq, TarnAcq::kCommunicate);
  bench.ticks(1);
  bench.acq->ToggleRecording();
  bench.ticks(1);
  bench.values = {kNone, 22};
  bench.ticks(1);
  bench.values = {1};  // not all of them: a failure of the request, told in the log
  bench.ticks(1);
  EXPECT_THAT(test::rowsOf(bench.files.files.at(bench.acq->RecordPath())),
              ElementsAre(HasSubstr("\"Start\"|200,5|21"), HasSubstr("|---|22")));
  EXPECT_THAT(bench.screen.log, testing::Contains(HasSubstr("expected 2 values, got 1")));
}

TEST(OwnSession, NamesThatCannotBeAreRefused) {
  Bench bench;
  EXPECT_EQ(&bench.add("Torque"), &bench.add("Torque"));
  EXPECT_THAT(test::failureOf([&] { bench.add("Speed"); }), HasSubstr("does not offer"));
  const auto addRequest = [&](const std::string& name, const std::vector<ferrox3::OwnDatum>& data) {
    return test::failureOf(
        [&] { bench.session->add("Bench", name, data, [] { return std::vector<double>(); }); });
  };
  EXPECT_THAT(addRequest("Sensors", {}), HasSubstr("Bench/Sensors: there is such a request already"));
  EXPECT_THAT(addRequest("More", {{"Speed"}, {"Speed"}}), HasSubstr("got \"Speed\""));
  EXPECT_THAT(addRequest("", {{"Speed"}}), HasSubstr("expected names"));
}

}  // namespace
}  // namespace tarnlog
