#pragma once

#include <QString>
#include <string_view>

#include "acquisition/AcqScreen.h"
#include "ui/acquisition/Indicator.h"

/// What the recorder says, in the user's language.
namespace tarnlog {

/// Of the words in AcqWords.
QString inUsersWords(std::string_view text);

/// Why there is no record file.
QString openFailureInUsersWords(OpenFailure failure, std::string_view reason);

/// What one of the two lamps says, as a sign and in words.
struct IndicatorMeaning {
  Indicator::Sign sign;
  QString words;
};

/// Of `LblRec`; while rows get lost that is what it says.
IndicatorMeaning recordingMeaning(RecordingFact fact, bool writeFailing);
/// Of `LblDiag`.
QString stateMeaning(AcquisitionState state);

}  // namespace tarnlog
