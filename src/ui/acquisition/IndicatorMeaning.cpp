#include "ui/acquisition/IndicatorMeaning.h"

#include <QCoreApplication>

#include "acquisition/Indicators.h"

namespace tarnlog {

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(Indicator)
};

}  // namespace

IndicatorMeaning recordingMeaning(Colour colour, bool writeFailing) {
  using Sign = Indicator::Sign;
  if (writeFailing) return {Sign::Warning, Words::tr("Rows are lost: the file cannot be written")};
  switch (colour) {
    case indicator::kRecording:
      return {Sign::Disc, Words::tr("Recording")};
    case indicator::kRequested:
      return {Sign::HalfDisc, Words::tr("Recording is about to start or to stop")};
    case indicator::kOpened:
      return {Sign::RingWithDot, Words::tr("The record file has just been opened")};
    default:
      return {Sign::Ring, Words::tr("Not recording")};
  }
}

QString stateMeaning(std::string_view caption) {
  if (caption == "init") return Words::tr("Initialising the control units");
  if (caption == "Wait") return Words::tr("Waiting for the control units to be ready");
  if (caption == "Start") return Words::tr("Starting diagnostic sessions and the initialisation scenario");
  if (caption == "com") return Words::tr("Communicating: values are polled");
  return Words::tr("Not acquiring");
}

}  // namespace tarnlog
