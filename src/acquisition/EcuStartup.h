#pragma once

#include <functional>
#include <string>
#include <vector>

#include "acquisition/AcqLog.h"
#include "config/oTarnParameters.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// Brings the ECUs of a poll set to the point where they can be polled: initialisation, diagnostic sessions,
/// global initialisation request, initialisation scenario. Everything that happens is logged; nothing raises.
class EcuStartup {
 public:
  using StopRequested = std::function<bool()>;

  /// `stopRequested` is asked between host calls.
  EcuStartup(AcqLog& log, StopRequested stopRequested);

  /// True when every ECU reported success. An initialisation that raises without a report counts as failed.
  bool initialise(ferrox3::PollSet& pollSet);

  /// False when a stop was requested before everything was sent.
  bool startSessions(ferrox3::Session& session, ferrox3::PollSet& pollSet, const oTarnParameters& parameters);

 private:
  using Scenario = std::vector<oScenarioRequest>;

  void reportInit(const ferrox3::Ecu& ecu, bool failed, const std::string& error);
  void startDiagnosticSession(ferrox3::Ecu& ecu);
  bool sendGlobalInit(ferrox3::Session& session, ferrox3::Ecu& ecu, const std::string& startSession);
  bool runScenario(ferrox3::PollSet& pollSet, const Scenario& scenario);
  void sendScenarioRequest(ferrox3::Request& request);

  AcqLog& log_;
  StopRequested stopRequested_;
  bool initError_ = false;
};

}  // namespace tarnlog
