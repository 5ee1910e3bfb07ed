#include "acquisition/EcuStartup.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

/// The manufacturer's diagnostic mode for development work (ISO 14230-3 leaves 89 to F9 to manufacturers and
/// suppliers).
constexpr std::uint8_t kDevelopmentSession = 0xA0;

/// The description of the failure, or none when the step succeeded.
template <class Step>
std::optional<std::string> failureOf(Step&& step) {
  try {
    std::forward<Step>(step)();
    return std::nullopt;
  } catch (const std::exception& error) {
    return error.what();
  }
}

ferrox3::Request* findScenarioRequest(const ferrox3::PollSet& pollSet, const oScenarioRequest& wanted) {
  for (std::size_t i = 0; i < pollSet.ecuCount(); ++i)
    if (const ferrox3::Ecu& ecu = pollSet.ecu(i); ecu.address() == wanted.Address)
      return ecu.findRequest(wanted.RequestName);
  return nullptr;
}

}  // namespace

EcuStartup::EcuStartup(AcqLog& log, StopRequested stopRequested)
    : log_(log), stopRequested_(std::move(stopRequested)) {}

bool EcuStartup::initialise(ferrox3::PollSet& pollSet) {
  initError_ = false;
  ferrox3::Protocol& protocol = pollSet.protocol();
  protocol.setInitReport([this](const ferrox3::Ecu& ecu, bool failed, const std::string&,
                                const std::string& error) { reportInit(ecu, failed, error); });
  return skipOnFailure([&] { protocol.initialiseAll(); }) && !initError_;
}

void EcuStartup::reportInit(const ferrox3::Ecu& ecu, bool failed, const std::string& error) {
  const std::string who = ecu.name() + " (" + ecu.protocolName() + ")";
  if (failed) {
    log_.add("    Init error :  " + who + " => " + error);
    initError_ = true;
  } else {
    log_.add("Init UCE " + who + " OK");
  }
}

/// While the vehicle is awaited, clicks may change the configuration: what is sent is what it was at the
/// start.
bool EcuStartup::startSessions(ferrox3::Session& session, ferrox3::PollSet& pollSet,
                               const oTarnParameters& parameters) {
  const std::string startSession = parameters.startSession;
  const Scenario scenario(parameters.initScenario->begin(), parameters.initScenario->end());
  for (std::size_t i = 0; i < pollSet.ecuCount(); ++i) {
    ferrox3::Ecu& ecu = pollSet.ecu(i);
    if (startSession.empty())
      startDiagnosticSession(ecu);
    else if (!sendGlobalInit(session, ecu, startSession))
      return false;
    if (stopRequested_()) return false;
  }
  return scenario.empty() || runScenario(pollSet, scenario);
}

void EcuStartup::startDiagnosticSession(ferrox3::Ecu& ecu) {
  if (ecu.protocolName() != "KWP2000") return;
  const auto failure = failureOf([&] {
    ferrox3::Kwp2000* const kwp = ecu.kwp2000();
    if (kwp == nullptr) throw TarnError(1, "EcuStartup", "no KWP2000 interface");
    kwp->startDiagnosticSession(kDevelopmentSession);
  });
  log_.add(failure ? "Start diag session error : " + *failure
                   : "Start diag session etude " + ecu.name() + " OK");
}

bool EcuStartup::sendGlobalInit(ferrox3::Session& session, ferrox3::Ecu& ecu,
                                const std::string& startSession) {
  std::unique_ptr<ferrox3::RawBuffer> request;
  std::unique_ptr<ferrox3::RawBuffer> response;
  auto failure = failureOf([&] {
    request = session.createRawBuffer();
    response = session.createRawBuffer();
    request->fill(startSession);
    response->setLength(0);
  });
  if (stopRequested_()) return false;
  if (!failure) failure = failureOf([&] { ecu.exchange(*request, *response); });
  const std::string what = ecu.functionName() + " Global init request : " + startSession;
  log_.add(failure ? what + " error : " + *failure : what);
  return true;
}

bool EcuStartup::runScenario(ferrox3::PollSet& pollSet, const Scenario& scenario) {
  log_.add("Init scenario start");
  for (const oScenarioRequest& wanted : scenario) {
    ferrox3::Request* const request = findScenarioRequest(pollSet, wanted);
    if (request == nullptr) continue;
    if (stopRequested_()) return false;
    sendScenarioRequest(*request);
    if (stopRequested_()) return false;
  }
  log_.add("Init scenario done");
  return true;
}

void EcuStartup::sendScenarioRequest(ferrox3::Request& request) {
  const auto failure = failureOf([&] { request.send(); });
  const std::string what = request.ecu().functionName() + " Init request : " + request.name();
  log_.add(failure ? what + " error : " + *failure
                   : what + " send=" + request.sentText() + " receive=" + request.receivedText());
}

}  // namespace tarnlog
