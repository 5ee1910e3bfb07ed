#pragma once

#include <span>
#include <string>
#include <string_view>

#include "publish/MeasurementAnswers.h"

/// What is published, as JSON objects.
namespace tarnlog {

/// A request's answer: {"t":1700000000000000000,"acquisition":"...","recording":"...","seq":7,
/// "values":{"Speed":12.5}}. "t" is nanoseconds since 1970 (UTC); "recording" is missing outside of one; null
/// is "not available". Of the values, those at these positions.
std::string answerText(const MeasurementAnswers& answer, std::string_view acquisition,
                       std::span<const std::size_t> positions);

/// What the values of a request mean: {"ecu":"Engine","request":"Speeds","data":{"Speed":{"unit":"km/h",
/// "minimum":0,"maximum":250,"labels":[{"value":0,"text":"off"}]}}}, without what is not known.
std::string descriptionText(const RecordGroup& group, std::span<const std::size_t> positions);

/// {"state":"recording","acquisition":"...","recording":"..."}, without what is empty.
std::string stateText(std::string_view state, std::string_view acquisition = {},
                      std::string_view recording = {});

}  // namespace tarnlog
