#include "samples/JsonText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

bool isPlain(char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; }

/// The first character, or the first byte where that begins none.
std::string_view firstCharacter(std::string_view text) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t bytes = 1; bytes <= std::min(kLongest, text.size()); ++bytes)
    if (isUtf8(text.substr(0, bytes))) return text.substr(0, bytes);
  return {};
}

void appendControl(ByteBuffer& out, char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out.append("\\u00");
  out.append(1, kDigits[static_cast<unsigned char>(c) >> 4U]);
  out.append(1, kDigits[static_cast<unsigned char>(c) & 0xFU]);
}

/// What is not plain. Tells how many bytes of the text that were.
std::size_t appendEscaped(ByteBuffer& out, std::string_view text) {
  const char c = text.front();
  if (c == '"' || c == '\\') {
    out.append(1, '\\');
    out.append(1, c);
  } else if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') {
    appendControl(out, c);
  } else {
    const std::string_view character = firstCharacter(text);
    out.append(character.empty() ? std::string_view("\xEF\xBF\xBD") : character);
    return std::max(character.size(), std::size_t{1});
  }
  return 1;
}

template <class Number>
void appendDigits(ByteBuffer& out, Number number) {
  constexpr std::size_t kLongest = 32;
  char* const to = out.room(kLongest);
  out.end(std::to_chars(to, to + kLongest, number).ptr);
}

/// Exactly so many digits, zeros in front.
char* putDigits(char* to, std::uint32_t number, int digits) {
  for (char* at = to + digits; at != to; number /= 10) *--at = static_cast<char>('0' + number % 10);
  return to + digits;
}

/// Most measured numbers have three decimals at most, which are written much faster than others: the number
/// of thousandths if that is all that there is to it.
std::optional<std::int64_t> wholeThousandths(double number) {
  constexpr double kMost = 1e15;
  if (!(std::abs(number) < kMost / 1000)) return std::nullopt;
  const std::int64_t thousandths = std::llrint(number * 1000);
  return static_cast<double>(thousandths) / 1000 == number ? std::optional(thousandths) : std::nullopt;
}

void appendThousandths(ByteBuffer& out, std::int64_t thousandths) {
  if (thousandths < 0) out.append(1, '-');
  const auto size = static_cast<std::uint64_t>(std::abs(thousandths));
  appendDigits(out, size / 1000);
  const auto decimals = static_cast<std::uint32_t>(size % 1000);
  if (decimals == 0) return;
  char text[4] = {'.'};
  const char* end = putDigits(text + 1, decimals, 3);
  while (end[-1] == '0') --end;
  out.append({text, static_cast<std::size_t>(end - text)});
}

}  // namespace

void appendJson(ByteBuffer& out, std::string_view text) {
  out.append(1, '"');
  while (!text.empty()) {
    const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(text, isPlain) - text.begin());
    out.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (!text.empty()) text.remove_prefix(appendEscaped(out, text));
  }
  out.append(1, '"');
}

void appendJson(ByteBuffer& out, std::int64_t number) { appendDigits(out, number); }

void appendJson(ByteBuffer& out, std::uint64_t number) { appendDigits(out, number); }

void appendJson(ByteBuffer& out, double number) {
  if (const std::optional<std::int64_t> thousandths = wholeThousandths(number))
    appendThousandths(out, *thousandths);
  else if (std::isfinite(number))
    appendDigits(out, number);
  else
    out.append("null");
}

void JsonMoments::append(ByteBuffer& out, std::int64_t nanoseconds) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  constexpr int kDecimals = 9;
  if (nanoseconds < kSecond) return appendJson(out, nanoseconds);
  if (nanoseconds < second_ || nanoseconds - second_ >= kSecond || digits_ == 0) {
    const std::int64_t seconds = nanoseconds / kSecond;
    second_ = seconds * kSecond;
    digits_ = static_cast<std::size_t>(std::to_chars(text_, text_ + sizeof text_, seconds).ptr - text_);
  }
  char* const to = std::copy_n(text_, digits_, out.room(digits_ + kDecimals));
  out.end(putDigits(to, static_cast<std::uint32_t>(nanoseconds - second_), kDecimals));
}

}  // namespace tarnlog
