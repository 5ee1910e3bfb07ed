#pragma once

#include <optional>

#include "platform/settings/SettingsStore.h"
#include "records/ForeignTable.h"

/// How a table of another program was read the last time: mostly the next one is of the same program.
namespace tarnlog {

/// None where there was none, and where rows of this file are nothing when they are read so. May raise.
std::optional<ForeignTableChoice> lastForeignChoice(const SettingsStore& settings, const ReadableFile& file);
/// May raise.
void keepForeignChoice(SettingsStore& settings, const ForeignTableChoice& choice);

}  // namespace tarnlog
