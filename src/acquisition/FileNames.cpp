#include "acquisition/FileNames.h"

#include "platform/text/DateText.h"

namespace tarnlog {

namespace {

std::string datedName(const LocalDateTime& now, const char* datePattern, const std::string& fileFormat,
                      const UserLocale& locale) {
  const auto part = [&](const char* pattern) { return formatDateTime(now, pattern, locale); };
  return part(datePattern) + "h" + part("Nn") + "mn" + part("ss") + fileFormat;
}

}  // namespace

std::string recordBaseName(const LocalDateTime& now, const std::string& fileFormat,
                           const UserLocale& locale) {
  return datedName(now, "d-m-yy_Hh", fileFormat, locale);
}

std::string looseEventName(const LocalDateTime& now, const std::string& fileFormat,
                           const UserLocale& locale) {
  return "event_" + datedName(now, "d-m-yy__Hh", fileFormat, locale);
}

std::string recordEventName(std::int32_t eventNumber, const std::string& recordBaseName) {
  return "event" + std::to_string(eventNumber) + "_" + recordBaseName;
}

std::string numberedName(const std::string& name, const std::string& fileFormat, int number) {
  return name.substr(0, name.size() - fileFormat.size()) + "_" + std::to_string(number) + fileFormat;
}

}  // namespace tarnlog
