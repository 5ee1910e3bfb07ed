#include "catalogue/FoldedText.h"

#include <array>
#include <cstddef>

namespace tarnlog {

namespace {

/// Lead byte, in UTF-8, of the letters U+00C0 to U+00FF.
constexpr unsigned char kLatinLead = 0xC3;

/// The plain letter for each of these; a blank for those that have none.
constexpr std::string_view kPlainLetters =
    "aaaaaa ceeeeiiii nooooo ouuuuy  "
    "aaaaaa ceeeeiiii nooooo ouuuuy y";

constexpr std::array<unsigned char, 256> lowerCaseTable() {
  std::array<unsigned char, 256> table{};
  for (std::size_t c = 0; c < table.size(); ++c)
    table[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return table;
}
constexpr auto kLowerCase = lowerCaseTable();

/// Gives the folded bytes one after the other, then 0.
class FoldedBytes {
 public:
  explicit FoldedBytes(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  unsigned char next() {
    if (at_ == end_) return 0;
    const auto byte = static_cast<unsigned char>(*at_++);
    if (byte == kLatinLead && at_ != end_) {
      const auto letter = static_cast<std::size_t>(static_cast<unsigned char>(*at_) & 0x3F);
      if (kPlainLetters[letter] != ' ') {
        ++at_;
        return static_cast<unsigned char>(kPlainLetters[letter]);
      }
    }
    return kLowerCase[byte];
  }

 private:
  const char* at_;
  const char* end_;
};

}  // namespace

void appendFolded(std::string& out, std::string_view text) {
  FoldedBytes bytes(text);
  while (const unsigned char byte = bytes.next()) out.push_back(static_cast<char>(byte));
}

std::string folded(std::string_view text) {
  std::string out;
  appendFolded(out, text);
  return out;
}

int compareFolded(std::string_view a, std::string_view b) {
  FoldedBytes first(a);
  FoldedBytes second(b);
  while (true) {
    const unsigned char left = first.next();
    const unsigned char right = second.next();
    if (left != right) return left < right ? -1 : 1;
    if (left == 0) return 0;
  }
}

std::uint64_t foldedPrefix(std::string_view text) {
  FoldedBytes bytes(text);
  std::uint64_t prefix = 0;
  for (int i = 0; i < 8; ++i) prefix = prefix << 8 | bytes.next();
  return prefix;
}

}  // namespace tarnlog
