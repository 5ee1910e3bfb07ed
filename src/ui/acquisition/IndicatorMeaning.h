#pragma once

#include <QString>

#include "acquisition/AcqScreen.h"
#include "ui/acquisition/Indicator.h"

/// What the recorder's two indicators say, in signs and words.
namespace tarnlog {

struct IndicatorMeaning {
  Indicator::Sign sign;
  QString words;
};

/// Of `LblRec`; while rows get lost that is what it says.
IndicatorMeaning recordingMeaning(RecordingFact fact, bool writeFailing);
/// Of `LblDiag`.
QString stateMeaning(AcquisitionState state);

}  // namespace tarnlog
