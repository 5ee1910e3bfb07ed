#include "ui/acquisition/ListChoices.h"

#include <algorithm>
#include <string>

namespace tarnlog {

namespace {

constexpr const char* kZoomName = "ValueListZoom";
constexpr std::array<const char*, ListChoices::kSwitches> kNames = {"ValueListMinimum", "ValueListMaximum",
                                                                    "ValuesNearNames"};
constexpr std::array kZooms = {50, 60, 70, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};
constexpr std::size_t kNormal = 5;
static_assert(kZooms[kNormal] == 100);

std::size_t stepOf(const std::string& zoom) {
  const auto step =
      std::ranges::find_if(kZooms, [&](int percent) { return std::to_string(percent) == zoom; });
  return step == kZooms.end() ? kNormal : static_cast<std::size_t>(step - kZooms.begin());
}

}  // namespace

ListChoices::ListChoices(SettingsStore* settings)
    : settings_(settings), zoom_(stepOf(settings_.read(kZoomName).value_or(""))) {
  for (std::size_t i = 0; i < kSwitches; ++i) on_[i] = settings_.read(kNames[i]) == "1";
}

int ListChoices::zoom() const { return kZooms[zoom_]; }

void ListChoices::zoomIn() { setZoom(std::min(zoom_ + 1, kZooms.size() - 1)); }

void ListChoices::zoomOut() { setZoom(zoom_ == 0 ? 0 : zoom_ - 1); }

void ListChoices::resetZoom() { setZoom(kNormal); }

void ListChoices::setZoom(std::size_t step) {
  if (step == zoom_) return;
  zoom_ = step;
  settings_.write(kZoomName, std::to_string(zoom()));
}

void ListChoices::setOn(Switch choice, bool on) {
  if (on_[choice] == on) return;
  on_[choice] = on;
  settings_.write(kNames[choice], on ? "1" : "0");
}

}  // namespace tarnlog
