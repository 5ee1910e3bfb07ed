#pragma once

#include <cstdint>
#include <string>

#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"

/// The names of record and event files: pure functions of date and configuration.
namespace tarnlog {

/// "16-11-26_19h05mn07.txt"
std::string recordBaseName(const LocalDateTime& now, const std::string& fileFormat, const UserLocale& locale);

/// While not recording: "event_16-11-26__19h05mn07.txt", with two underscores before the hour. Without
/// prefix.
std::string looseEventName(const LocalDateTime& now, const std::string& fileFormat, const UserLocale& locale);

/// While recording: "event2_16-11-26_19h05mn07.txt". Without prefix.
std::string recordEventName(std::int32_t eventNumber, const std::string& recordBaseName);

/// `name` with "_2", "_3", ... before its extension.
std::string numberedName(const std::string& name, const std::string& fileFormat, int number);

}  // namespace tarnlog
