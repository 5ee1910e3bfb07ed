#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog::test {

/// What an adapter knows, and the form in which it answers.
struct ElmForm {
  std::set<std::string> unknown{};  ///< commands (as sent, without digits of a value) answered by "?"
  bool keepsEcho = false;
  bool keepsBlanks = false;
  bool countsFrames = true;  ///< knows the digit behind a request
  bool adapts = true;        ///< waits no longer than ECUs need; else the time of ATST
  std::string lineEnd = "\r";
};

/// An ELM327 with a car behind it, as the adapter's data sheet describes them: characters in, characters out.
///
///     Elm327Peer adapter;
///     adapter.addEcu(0x7E8).answers["010C"] = {"410C1AF8"};
class Elm327Peer : public ElmForm {
 public:
  enum class Bus : std::uint8_t { none, can11, can29, kwp, iso9141 };

  struct Ecu {
    std::uint32_t source = 0;  ///< identifier of its frames, or its address on the K line
    /// Request -> responses, as hexadecimal digits.
    std::map<std::string, std::vector<std::string>> answers;
    bool onlyByDefault = false;  ///< it is reached as long as the adapter was told no address
  };

  Bus bus = Bus::can11;
  std::string name = "ELM327 v1.5";
  bool ignoresAddress = false;  ///< says OK to ATSH, and asks all
  bool severalPids = false;     ///< its ECUs answer several PIDs of service 01 at once
  /// Command -> texts that are sent instead of what is right, once each, as they are.
  std::map<std::string, std::deque<std::string>> instead;
  std::deque<Ecu> ecus;
  /// In what it sends, in place of a character: the next comes a millisecond later.
  static constexpr char kMillisecond = '\x06';
  std::vector<std::string> heard;  ///< every line
  std::string newest;              ///< characters
  std::function<void(const std::string& line)> onLine;
  int ownRate = 38400;  ///< of its serial line when it starts
  int rate = ownRate;
  int trial = 0;  ///< the rate that ATBRD asked for

  Ecu& addEcu(std::uint32_t source) {
    ecus.emplace_back().source = source;
    return ecus.back();
  }

  /// Takes characters and gives what the adapter sends at once.
  std::string accept(std::string_view characters) {
    newest = characters;
    std::string out;
    for (const char c : characters) {
      if (echo_ || keepsEcho) out += c;
      if (c == '\n' || c == ' ' || c == '\0') continue;
      if (c != '\r') {
        line_ += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        continue;
      }
      if (echo_ && lineEnd == "\r\n") out += '\n';
      std::string line;
      line.swap(line_);
      out += answer(line);
    }
    return out;
  }

  void reset() {
    echo_ = true;
    blanks_ = true;
    headers_ = false;
    header_.clear();
    filter_.clear();
    protocol_ = '0';
    searched_ = false;
    steps_ = 50;
  }

  /// That many digits.
  static std::string hex(unsigned value, int digits) {
    std::string text;
    for (int i = digits - 1; i >= 0; --i) text += "0123456789ABCDEF"[value >> (4 * i) & 0xF];
    return text;
  }

 private:
  std::string answer(const std::string& line) {
    heard.push_back(line);
    if (onLine) onLine(line);
    auto& scripted = instead[line];
    if (!scripted.empty()) {
      const std::string text = scripted.front();
      scripted.pop_front();
      return text;
    }
    const std::string text = line.starts_with("AT") ? command(line.substr(2)) : request(line);
    return trial != 0 ? text : text + lineEnd + ">";
  }

  std::string says(const std::string& text) const { return text + lineEnd; }

  std::string command(const std::string& text) {
    const auto is = [&](std::string_view prefix) { return text.starts_with(prefix); };
    for (const std::string& each : unknown)
      if (is(each)) return says("?");
    if (text == "Z" || text == "WS") {
      reset();
      return lineEnd + lineEnd + says(name);
    }
    if (text == "I") return says(name);
    if (text == "RV") return says("12.4V");
    if (is("BRD")) trial = 4'000'000 / static_cast<int>(byteAt(text.substr(3), 0));
    if (is("ST")) steps_ = byteAt(text.substr(2), 0);
    if (text == "DPN") return says(std::string("A") + busNumber());
    if (text == "E0" || text == "E1") echo_ = text == "E1";
    if (text == "S0" || text == "S1") blanks_ = text == "S1";
    if (text == "H0" || text == "H1") headers_ = text == "H1";
    if (is("SP")) {
      protocol_ = text.back();
      searched_ = false;
      header_.clear();
    }
    if (is("SH") && !ignoresAddress) header_ = text.substr(2);
    if (is("CRA")) filter_ = text.substr(3);
    if (text == "AR") filter_.clear();
    for (const std::string_view known : {"Z",  "E",   "S",  "H",  "SP", "SH", "L",  "M",  "AT",  "ST", "CAF",
                                         "CP", "CRA", "AR", "CF", "CM", "FC", "WM", "PC", "IIA", "D",  "BRD"})
      if (is(known)) return says("OK");
    return says("?");
  }

  /// Of `bus`, as the adapter counts the protocols.
  char busNumber() const { return "06753"[static_cast<std::size_t>(bus)]; }

  std::string request(std::string line) {
    if (line.empty() || line.find_first_not_of("0123456789ABCDEF") != std::string::npos) return says("?");
    std::size_t wanted = 0;
    if (line.size() % 2 != 0) {
      if (!countsFrames) return says("?");
      wanted = static_cast<std::size_t>(digit(line.back()));
      line.pop_back();
    }
    std::string out;
    const bool reachable = bus != Bus::none && (protocol_ == '0' || protocol_ == busNumber());
    if (!searched_ && protocol_ == '0') out += "SEARCHING..." + lineEnd;
    if (!searched_ && protocol_ != '0' && bus == Bus::kwp) out += "BUS INIT: ...";
    if (!reachable) {
      if (protocol_ == '0') return out + says("UNABLE TO CONNECT");
      return out + says(protocol_ >= '6' ? "CAN ERROR" : "BUS INIT: ...ERROR");
    }
    if (out.starts_with("BUS")) out += "OK" + lineEnd;
    searched_ = true;
    std::vector<std::string> lines = answerLines(line);
    if (lines.empty() && !adapts) out.append(std::size_t{4} * steps_, kMillisecond);
    if (lines.empty()) return out + says("NO DATA");
    if (wanted > 0 && wanted < lines.size()) lines.resize(wanted);
    for (const std::string& each : lines) out += says(each);
    if (!adapts && wanted == 0) out.append(std::size_t{4} * steps_, kMillisecond);
    return out;
  }

  static int digit(char c) { return c <= '9' ? c - '0' : c - 'A' + 10; }
  static unsigned byteAt(const std::string& digits, std::size_t at) {
    return static_cast<unsigned>(digit(digits[2 * at]) * 16 + digit(digits[2 * at + 1]));
  }

  bool hears(const Ecu& ecu) const {
    if (ecu.onlyByDefault) return header_.empty();
    if (header_.empty()) return true;
    if (bus == Bus::can11) return header_ == "7DF" || header_ == hex(ecu.source - 8, 3);
    if (bus == Bus::can29) return header_ == "DB33F1" || header_ == "DA" + hex(ecu.source & 0xFF, 2) + "F1";
    return header_.substr(2) == "33F1" || header_ == "686AF1" || header_ == "81" + hex(ecu.source, 2) + "F1";
  }

  std::vector<std::string> answerLines(const std::string& request) {
    std::vector<std::string> lines;
    for (Ecu& ecu : ecus)
      if (hears(ecu) && (filter_.empty() || filter_ == hex(ecu.source, static_cast<int>(filter_.size()))))
        for (const std::string& response : responses(ecu, request))
          for (std::string& line : frames(ecu, response)) lines.push_back(std::move(line));
    return lines;
  }

  std::vector<std::string> responses(Ecu& ecu, const std::string& request) const {
    const auto found = ecu.answers.find(request);
    if (found != ecu.answers.end()) return found->second;
    if (!severalPids || !request.starts_with("01") || request.size() < 6) return {};
    std::string all = "41";
    for (std::size_t i = 2; i < request.size(); i += 2) {
      const auto one = ecu.answers.find("01" + request.substr(i, 2));
      if (one != ecu.answers.end()) all += one->second.front().substr(2);
    }
    return all.size() > 2 ? std::vector<std::string>{all} : std::vector<std::string>{};
  }

  std::string blanked(const std::string& digits, std::size_t first) const {
    if (!blanks_ && !keepsBlanks) return digits;
    std::string text = digits.substr(0, first);
    for (std::size_t i = first; i < digits.size(); i += 2) text += (i > 0 ? " " : "") + digits.substr(i, 2);
    return text + " ";
  }

  std::vector<std::string> frames(const Ecu& ecu, const std::string& response) const {
    if (bus == Bus::can11 || bus == Bus::can29) return canFrames(ecu, response);
    const auto length = static_cast<unsigned>(response.size() / 2);
    if (!headers_) return {blanked(response, 0)};
    const bool longKwp = bus == Bus::kwp && length > 63;
    std::string frame = bus == Bus::kwp ? hex(longKwp ? 0x80 : 0x80 + length, 2) + "F1" : "486B";
    frame += hex(ecu.source, 2) + (longKwp ? hex(length, 2) : "") + response;
    unsigned sum = 0;
    for (std::size_t i = 0; i < frame.size() / 2; ++i) sum += byteAt(frame, i);
    return {blanked(frame + hex(sum & 0xFF, 2), 0)};
  }

  std::vector<std::string> canFrames(const Ecu& ecu, const std::string& response) const {
    const auto length = static_cast<unsigned>(response.size() / 2);
    const bool shortId = bus == Bus::can11;
    const std::string id = hex(ecu.source, shortId ? 3 : 8);
    const auto headed = [&](const std::string& frame) { return blanked(id + frame, shortId ? 3 : 0); };
    if (length <= 7) return {headers_ ? headed(hex(length, 2) + response) : blanked(response, 0)};
    std::vector<std::string> lines;
    if (!headers_) lines.push_back(hex(length, 3));
    unsigned number = 0;
    for (std::size_t at = 0; at < response.size(); ++number) {
      const std::size_t take = number == 0 ? 12 : 14;
      std::string part = response.substr(at, take);
      at += take;
      while (!headers_ && number > 0 && part.size() < take) part += "00";
      if (headers_)
        lines.push_back(headed((number == 0 ? "1" + hex(length, 3) : "2" + hex(number & 0xF, 1)) + part));
      else
        lines.push_back(hex(number & 0xF, 1) + ":" + blanked(part, 0));
    }
    return lines;
  }

  std::string line_;
  bool echo_ = true;
  bool blanks_ = true;
  bool headers_ = false;
  bool searched_ = false;
  char protocol_ = '0';
  unsigned steps_ = 50;
  std::string header_;
  std::string filter_;
};

}  // namespace tarnlog::test
