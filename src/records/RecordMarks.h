#pragma once

#include <string>
#include <string_view>

#include "records/Record.h"

/// Marks as text and XML records have them: "Start", "Stop", "event2".
namespace tarnlog {

/// Of a row with this mark.
RecordNote markNote(std::string_view mark, double time);

/// What a note is called among them.
std::string markText(const RecordNote& note);

}  // namespace tarnlog
