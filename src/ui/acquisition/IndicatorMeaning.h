#pragma once

#include <QString>
#include <string_view>

#include "ui/acquisition/Indicator.h"

/// What the recorder's two indicators say, in signs and words.
namespace tarnlog {

struct IndicatorMeaning {
  Indicator::Sign sign;
  QString words;
};

/// Of a colour of `LblRec`; while rows get lost that is what it says.
IndicatorMeaning recordingMeaning(Colour colour, bool writeFailing = false);
/// Of a caption of `LblDiag`.
QString stateMeaning(std::string_view caption);

}  // namespace tarnlog
