#include "acquisition/AcqWords.h"

#include "platform/text/Numbers.h"

namespace tarnlog::words {
namespace {

constexpr Colour kRed = 0x0000FF;
constexpr Colour kOrange = 0x00D0FF;
constexpr Colour kLightGreen = 0x80FF80;
constexpr Colour kWhite = 0xFFFFFF;
constexpr Colour kYellow = 0x00FFFF;

}  // namespace

StateSign of(AcquisitionState state) {
  using enum AcquisitionState;
  switch (state) {
    case kIdle:
      break;
    case kInitialise:
      return {"init", kWhite};
    case kWaitAfterInit:
    case kWaitBeforePolling:
      return {"Wait", kYellow};
    case kStartSessions:
      return {"Start", kOrange};
    case kCommunicate:
      return {"com", kLightGreen};
  }
  return {"", kButtonFace};
}

Colour colourOf(RecordingFact fact) {
  switch (fact) {
    case RecordingFact::Cleared:
    case RecordingFact::Off:
      break;
    case RecordingFact::Requested:
      return kOrange;
    case RecordingFact::Opened:
      return kLightGreen;
    case RecordingFact::On:
      return kRed;
  }
  return kButtonFace;
}

std::string eventCaption(std::int32_t number) {
  return std::string(kEvent) + (number == 0 ? "" : " " + std::to_string(number));
}

std::string_view recordText(std::string_view path) { return path.empty() ? kNoRecordFile : path; }

std::string openFailureText(OpenFailure failure, std::string_view reason) {
  if (failure == OpenFailure::NoStream) return std::string(kNotCreated);
  return std::string(kOpenError) + std::string(reason);
}

std::string elapsedText(std::int64_t milliseconds, char decimalSeparator) {
  std::string text;
  appendSeconds1(text, milliseconds, decimalSeparator);
  return text;
}

}  // namespace tarnlog::words
