#include "apps/tarn-record/ConsoleScreen.h"

namespace tarnlog::record {

void ConsoleScreen::setPanelText(StatusPanel panel, std::string_view text) {
  if (panel == StatusPanel::AcqTime) {
    elapsed_ = text;
  } else if (text.starts_with("Open error : ") || text.starts_with("Error : ")) {
    openFailed_ = true;
    print_(text);
  }
}

}  // namespace tarnlog::record
