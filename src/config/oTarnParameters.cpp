#include "config/oTarnParameters.h"

#include <optional>
#include <utility>

#include "config/RegisterParameters.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

oTarnParameters::oTarnParameters(const SettingsStore& settings)
    : startTrigger(std::make_shared<oTarnTrigger>()),
      stopTrigger(std::make_shared<oTarnTrigger>()),
      initScenario(std::make_shared<oScenario>()) {
  stopTrigger->modeTrigger = 1;
  setRecordingPeriod(GetRegisterParameter(settings, kRegisterPeriod, "1"));
  fileFolder = GetRegisterParameter(settings, kRegisterPathName, "");
  fileFormat = GetRegisterParameter(settings, kRegisterFormat, ".txt");
}

void oTarnParameters::setRecordingPeriod(std::string_view text) {
  const auto period = wholeInteger(text);
  if (period && *period >= 0) recordingPeriod = *period;
}

oTarnScope& oTarnParameters::Add(const std::string& key) {
  return scopes_.Add(std::make_unique<oTarnScope>(), key);
}

oTarnScope& oTarnParameters::AddScope(std::unique_ptr<oTarnScope> scope) {
  std::string key = scope->DataKey;
  return scopes_.Add(std::move(scope), std::move(key));
}

oTarnScope* oTarnParameters::ItemIndex(std::int32_t index) const {
  for (oTarnScope& scope : scopes_)
    if (scope.index == index) return &scope;
  return nullptr;
}

void oTarnParameters::RemoveAll() {
  for (oTarnScope& scope : scopes_) scope.Clear();
  scopes_.RemoveAll();
}

}  // namespace tarnlog
