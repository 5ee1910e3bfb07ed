#include "ui/acquisition/IndicatorMeaning.h"

#include <QCoreApplication>

namespace tarnlog {

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(Indicator)
};

}  // namespace

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
