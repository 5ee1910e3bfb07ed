#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "acquisition/AcqScreen.h"

/// The words and colours that the system has for what an acquisition tells. Colours are 0x00BBGGRR; each has
/// a caption or a button's text beside it.
namespace tarnlog::words {

inline constexpr std::string_view kRecording = "rec";  ///< LblRec, in every colour
inline constexpr std::string_view kStartRecording = "Start recording";
inline constexpr std::string_view kStopRecording = "Stop recording";
inline constexpr std::string_view kEvent = "Event";
inline constexpr std::string_view kNoRecordFile = "no record file";
inline constexpr std::string_view kOpenError = "Open error : ";  ///< the reason follows
inline constexpr std::string_view kNotCreated = "Error : Unable to create file";

/// How a state is shown by LblDiag.
struct StateSign {
  std::string_view caption;
  Colour colour;
};
StateSign of(AcquisitionState state);

/// LblRec.
Colour colourOf(RecordingFact fact);

/// EventBouton: "Event", "Event 3".
std::string eventCaption(std::int32_t number);
/// Panel "Record": the path, or "no record file".
std::string_view recordText(std::string_view path);
std::string openFailureText(OpenFailure failure, std::string_view reason);
/// Panel "AcqTime": seconds with one decimal, "12.3".
std::string elapsedText(std::int64_t milliseconds, char decimalSeparator);

}  // namespace tarnlog::words
