#include "config/RegisterParameters.h"

#include <optional>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

const char* valueName(std::int32_t id) {
  switch (id) {
    case kRegisterPathName:
      return "PathName";
    case kRegisterFormat:
      return "Format";
    case kRegisterPeriod:
      return "Period";
    default:
      return nullptr;
  }
}

}  // namespace

std::string GetRegisterParameter(const SettingsStore& settings, std::int32_t id,
                                 const std::string& fallback) {
  const char* const name = valueName(id);
  std::optional<std::string> value;
  if (name != nullptr) skipOnFailure([&] { value = settings.read(name); });
  return value && !value->empty() ? *value : fallback;
}

void SetRegisterParameter(SettingsStore& settings, std::int32_t id, const std::string& value) {
  const char* const name = valueName(id);
  if (name == nullptr) throw TarnError(1, "SetRegisterParameter", "Unknown parameter");
  settings.write(name, value);
}

}  // namespace tarnlog
