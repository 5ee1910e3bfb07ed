#include "apps/tarn-record/CheckCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "acquisition/AcquisitionItems.h"
#include "acquisition/RecordFormats.h"
#include "acquisition/RecordingPlan.h"
#include "acquisition/SilentAcqScreen.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/ConfigurationOddities.h"
#include "platform/text/Numbers.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

std::string triggerText(const oTarnParameters& parameters, const oTarnTrigger& trigger) {
  if (trigger.typeTrigger == oTarnTrigger::kTime) return Told::tr("after {} s", trigger.timeSeconde);
  const oTarnScope* const watched =
      trigger.typeTrigger == oTarnTrigger::kChannel ? parameters.ItemIndex(trigger.DataIndex) : nullptr;
  if (watched == nullptr) return Told::tr("manual");
  const std::string level = exactNumberText(trigger.level);
  return trigger.edge < 0 ? Told::tr("{} falls to {} {}", watched->DataName, level, watched->Unit)
                          : Told::tr("{} rises to {} {}", watched->DataName, level, watched->Unit);
}

bool neverFires(const oTarnTrigger& trigger) {
  return trigger.typeTrigger == oTarnTrigger::kChannel && trigger.edge != 1 && trigger.edge != -1;
}

/// A run that is put together and not started.
class Check {
 public:
  Check(const FileSystem& files, const LoadedConfiguration& configuration, ferrox3::Session& session)
      : files_(files),
        parameters_(*configuration.parameters),
        lacks_(lackingLines(configuration)),
        session_(session) {
    columns_ = items_.BuildAcquisitionList(session, parameters_, screen_, display_);
  }

  CheckedConfiguration result(const std::vector<std::string>& oddities) {
    describeTiming();
    describeRequests();
    describeFiles();
    describeData();
    for (const std::string& lack : lacks_) add(lack);
    for (const std::string& oddity : oddities) add(Told::tr("odd: {}", oddity));
    return {report_, refusal_};
  }

 private:
  void add(const std::string& line) { report_ += printableLine(line) + "\n"; }

  void describeTiming() {
    const oTarnTrigger& start = *parameters_.startTrigger;
    const oTarnTrigger& stop = *parameters_.stopTrigger;
    RecordingPlan plan;
    try {
      if (columns_ == 0) throw TarnError(1, "check", Told::tr("no data to acquire"));
      plan = planRecording(parameters_, columns_);
    } catch (const TarnError& error) {
      refusal_ = error.description();
    }
    add(parameters_.recordingPeriod == 0 ? Told::tr("period 0 s, a row every polling cycle")
                                         : Told::tr("period {} s", parameters_.recordingPeriod));
    add(Told::tr("start: {}, pre-trigger {} s = {} points", triggerText(parameters_, start),
                 -std::min<std::int64_t>(start.prepost, 0), plan.preTriggerPoints));
    add(Told::tr("stop: {}, post-trigger {} s = {} points", triggerText(parameters_, stop),
                 std::llabs(std::int64_t{stop.prepost}), plan.postTriggerPoints));
    if (neverFires(start)) add(Told::tr("the start trigger never fires: its edge is neither 1 nor -1"));
    if (neverFires(stop)) add(Told::tr("the stop trigger never fires: its edge is neither 1 nor -1"));
  }

  /// Sent to the ECUs whose data are recorded, and to no other.
  void describeRequests() {
    if (!parameters_.startSession.empty()) describeStartSession();
    for (const oScenarioRequest& request : *parameters_.initScenario) {
      const bool sent = polls(request.Address);
      add(sent ? Told::tr("init scenario: {}/{}", request.EcuName, request.RequestName)
               : Told::tr("init scenario: {}/{}, never sent: nothing is recorded from this ECU",
                          request.EcuName, request.RequestName));
    }
  }

  void describeStartSession() {
    std::string to;
    for (std::size_t i = 0; i < items_.pollSet().ecuCount(); ++i)
      to += (i == 0 ? "" : ", ") + items_.pollSet().ecu(i).name();
    try {
      session_.createRawBuffer()->fill(parameters_.startSession);
      add(Told::tr("start session: {}, sent to {}", parameters_.startSession, to));
    } catch (const TarnError& error) {
      add(Told::tr("odd: Parameters/StartSession: {}; nothing is sent", error.description()));
    }
  }

  bool polls(std::int16_t address) {
    for (std::size_t i = 0; i < items_.pollSet().ecuCount(); ++i)
      if (items_.pollSet().ecu(i).address() == address) return true;
    return false;
  }

  void describeFiles() {
    const bool there = files_.folderExists(parameters_.fileFolder);
    const std::string folder = there ? parameters_.fileFolder : files_.currentFolder();
    add(Told::tr("files: {}, {}",
                 joinPath(folder, parameters_.filePrefix + "DATE_TIME" + parameters_.fileFormat),
                 recordFormatOf(parameters_.fileFormat).description));
    if (!there && !parameters_.fileFolder.empty())
      add(Told::tr("odd: the folder {} is missing: the files go into the current one",
                   parameters_.fileFolder));
    if (!files_.folderWritable(folder)) add(Told::tr("odd: no file can be made in the folder {}", folder));
    if (!parameters_.fileFormat.starts_with('.'))
      add(Told::tr("odd: format=\"{}\": expected .xml, .txt or another extension with its dot",
                   parameters_.fileFormat));
  }

  void describeData() {
    add(Told::tr("{} data load:", parameters_.Count()));
    for (const oTarnScope& scope : parameters_)
      add(fmt::format("  {}/{}/{}{}", scope.EcuName, scope.RequestName, scope.DataName,
                      scope.Unit.empty() ? "" : " (" + scope.Unit + ")"));
  }

  const FileSystem& files_;
  const oTarnParameters& parameters_;
  std::vector<std::string> lacks_;
  ferrox3::Session& session_;
  SilentAcqScreen screen_;
  GrapheItems display_;
  AcquisitionItems items_;
  std::int32_t columns_ = 0;
  std::string report_;
  std::string refusal_;
};

}  // namespace

CheckedConfiguration checkConfiguration(const FileSystem& files, const SettingsStore& settings,
                                        const std::string& file, ferrox3::Session& session,
                                        const SessionDocument& document) {
  const LoadedConfiguration loaded = loadConfiguration(files, settings, file, document);
  return Check(files, loaded, session).result(configurationOddities(files, file));
}

}  // namespace tarnlog::record
