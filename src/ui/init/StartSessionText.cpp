#include "ui/init/StartSessionText.h"

namespace tarnlog {

namespace {

bool isHexadecimalDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

}  // namespace

std::string normalisedStartSession(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  std::string trimmed(text.substr(first, text.find_last_not_of(' ') - first + 1));
  if (trimmed.size() % 2 != 0) trimmed.insert(0, 1, '0');
  return trimmed;
}

bool isSendableStartSession(std::string_view text) {
  const std::string kept = normalisedStartSession(text);
  for (std::size_t at = 0; at < kept.size();) {
    if (kept[at] == ' ') {
      ++at;
      continue;
    }
    if (at + 1 == kept.size() || !isHexadecimalDigit(kept[at]) || !isHexadecimalDigit(kept[at + 1]))
      return false;
    at += 2;
  }
  return true;
}

}  // namespace tarnlog
