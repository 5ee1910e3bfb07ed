#include "apps/tarn-record/ConsoleScreen.h"

#include "acquisition/AcqWords.h"

namespace tarnlog::record {

void ConsoleScreen::setOpenFailure(OpenFailure failure, std::string_view reason) {
  openFailed_ = true;
  failed_(words::openFailureText(failure, reason));
}

}  // namespace tarnlog::record
