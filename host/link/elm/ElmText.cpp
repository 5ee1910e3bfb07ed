#include "host/link/elm/ElmText.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace tarnlog::host {
namespace {

struct Phrase {
  std::string_view text;  ///< upper case, without blanks
  ElmNotice notice;
};

constexpr std::array kPhrases{
    Phrase{"OK", ElmNotice::ok},
    Phrase{"?", ElmNotice::unknownCommand},
    Phrase{"NODATA", ElmNotice::noData},
    Phrase{"UNABLETOCONNECT", ElmNotice::noConnection},
    Phrase{"BUSINITERROR", ElmNotice::noConnection},
    Phrase{"CANERROR", ElmNotice::busTrouble},
    Phrase{"BUSERROR", ElmNotice::busTrouble},
    Phrase{"BUSBUSY", ElmNotice::busTrouble},
    Phrase{"FBERROR", ElmNotice::busTrouble},
    Phrase{"ERROR", ElmNotice::busTrouble},
    Phrase{"FCRXTIMEOUT", ElmNotice::damaged},
    Phrase{"DATAERROR", ElmNotice::damaged},
    Phrase{"RXERROR", ElmNotice::damaged},
    Phrase{"BUFFERFULL", ElmNotice::damaged},
    Phrase{"STOPPED", ElmNotice::damaged},
    Phrase{"LVRESET", ElmNotice::restarted},
    Phrase{"ERR94", ElmNotice::restarted},
    Phrase{"ACTALERT", ElmNotice::working},
    Phrase{"LPALERT", ElmNotice::working},
};

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); }
bool isHex(std::string_view text) { return std::all_of(text.begin(), text.end(), isHexDigit); }
int hexValue(char c) { return c <= '9' ? c - '0' : c - 'A' + 10; }

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Upper case, without blanks.
std::string compact(std::string_view text) {
  std::string out;
  for (const char c : text)
    if (c >= 'a' && c <= 'z')
      out += static_cast<char>(c - 'a' + 'A');
    else if (c != ' ' && c != '\t')
      out += c;
  return out;
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

void skip(std::string_view& text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

ElmNotice phrase(std::string_view text) {
  const auto found =
      std::find_if(kPhrases.begin(), kPhrases.end(), [&](const Phrase& each) { return each.text == text; });
  if (found != kPhrases.end()) return found->notice;
  if (text.find("ELM32") != std::string_view::npos) return ElmNotice::restarted;
  // "41 0C 1A <DATA ERROR": the adapter marks what it doubts.
  const bool marked = text.ends_with("DATAERROR") || text.ends_with("RXERROR") || text.ends_with("STOPPED");
  return marked ? ElmNotice::damaged : ElmNotice::none;
}

/// Takes the words of an adapter at work off the beginning: "SEARCHING...41 00 ...", "BUS INIT: ...OK".
ElmNotice takeProgress(std::string_view& text) {
  if (takePrefix(text, "SEARCHING")) {
    skip(text, ".:");
    return ElmNotice::working;
  }
  if (!takePrefix(text, "BUSINIT")) return ElmNotice::none;
  skip(text, ".:");
  if (takePrefix(text, "ERROR")) return ElmNotice::noConnection;
  takePrefix(text, "OK");
  return ElmNotice::working;
}

}  // namespace

ElmLine parseElmLine(std::string_view text) {
  ElmLine line;
  line.text = trimmed(text);
  const std::string words = compact(line.text);
  std::string_view rest = words;
  skip(rest, "!");
  line.notice = takeProgress(rest);
  if (line.notice == ElmNotice::noConnection || rest.empty()) return line;
  const ElmNotice progress = line.notice;
  line.notice = phrase(rest);
  if (line.notice != ElmNotice::none) return line;
  if (rest.size() >= 2 && rest[1] == ':' && isHexDigit(rest[0]) && isHex(rest.substr(2))) {
    line.number = hexValue(rest[0]);
    line.digits = rest.substr(2);
  } else if (isHex(rest)) {
    line.digits = rest;
  } else {
    line.notice = progress;
  }
  return line;
}

std::string quotedText(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  std::string out = "\"";
  for (const char c : text) {
    if (out.size() > kLongest) return out + "...\"";
    const auto code = static_cast<unsigned char>(c);
    const bool plain = code >= 0x20 && code < 0x7F;
    out += plain ? std::string(1, c) : fmt::format("\\x{:02X}", code);
  }
  return out + '"';
}

bool beginsWork(std::string_view text) {
  const std::string words = compact(text);
  return words.starts_with("SEA") || words.starts_with("BUS");
}

void ElmReader::clear() {
  rest_ = {};
  line_.clear();
  given_ = prompt_ = false;
}

std::optional<ElmReader::Item> ElmReader::next() {
  if (given_) line_.clear();
  given_ = false;
  if (prompt_) {
    prompt_ = false;
    return Item{true, {}};
  }
  while (!rest_.empty()) {
    const char c = static_cast<char>(rest_.front());
    rest_ = rest_.subspan(1);
    if (c == '\r' || c == '\n' || c == '>') {
      if (line_.empty() && c != '>') continue;
      if (line_.empty()) return Item{true, {}};
      prompt_ = c == '>';
      given_ = true;
      return Item{false, line_};
    }
    if (c != '\0' && line_.size() < kLongestLine) line_ += c;
  }
  return std::nullopt;
}

}  // namespace tarnlog::host
