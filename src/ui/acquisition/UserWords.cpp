#include "ui/acquisition/UserWords.h"

#include <QCoreApplication>
#include <array>
#include <string>

#include "acquisition/AcqWords.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

/// For translators.
[[maybe_unused]] constexpr std::array kWords = {
    QT_TRANSLATE_NOOP("UserWords", "rec"),
    QT_TRANSLATE_NOOP("UserWords", "init"),
    QT_TRANSLATE_NOOP("UserWords", "Wait"),
    QT_TRANSLATE_NOOP("UserWords", "Start"),
    QT_TRANSLATE_NOOP("UserWords", "com"),
    QT_TRANSLATE_NOOP("UserWords", "Start recording"),
    QT_TRANSLATE_NOOP("UserWords", "Stop recording"),
    QT_TRANSLATE_NOOP("UserWords", "Event"),
    QT_TRANSLATE_NOOP("UserWords", "no record file"),
    QT_TRANSLATE_NOOP("UserWords", "Open error : "),
    QT_TRANSLATE_NOOP("UserWords", "Error : Unable to create file"),
};

struct Words {
  Q_DECLARE_TR_FUNCTIONS(Indicator)
};

}  // namespace

QString inUsersWords(std::string_view text) {
  return text.empty() ? QString() : QCoreApplication::translate("UserWords", std::string(text).c_str());
}

QString openFailureInUsersWords(OpenFailure failure, std::string_view reason) {
  return failure == OpenFailure::NoStream ? inUsersWords(words::kNotCreated)
                                          : inUsersWords(words::kOpenError) + toQString(reason);
}

IndicatorMeaning recordingMeaning(RecordingFact fact, bool writeFailing) {
  using Sign = Indicator::Sign;
  if (writeFailing) return {Sign::Warning, Words::tr("Rows are lost: the file cannot be written")};
  switch (fact) {
    case RecordingFact::Cleared:
    case RecordingFact::Off:
      break;
    case RecordingFact::Requested:
      return {Sign::HalfDisc, Words::tr("Recording is about to start or to stop")};
    case RecordingFact::Opened:
      return {Sign::RingWithDot, Words::tr("The record file has just been opened")};
    case RecordingFact::On:
      return {Sign::Disc, Words::tr("Recording")};
  }
  return {Sign::Ring, Words::tr("Not recording")};
}

QString stateMeaning(AcquisitionState state) {
  using enum AcquisitionState;
  switch (state) {
    case kIdle:
      break;
    case kInitialise:
      return Words::tr("Initialising the control units");
    case kWaitAfterInit:
    case kWaitBeforePolling:
      return Words::tr("Waiting for the control units to be ready");
    case kStartSessions:
      return Words::tr("Starting diagnostic sessions and the initialisation scenario");
    case kCommunicate:
      return Words::tr("Communicating: values are polled");
  }
  return Words::tr("Not acquiring");
}

}  // namespace tarnlog
