#include "host/vehicle/session/ValueText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "platform/text/Numbers.h"

namespace tarnlog::host {

void appendValueText(std::string& out, double value, const std::optional<int>& decimals,
                     char decimalSeparator) {
  // The largest double has 309 digits before the point.
  constexpr std::size_t kLongestText = 309 + 15 + 3;
  if (!decimals) {
    appendNumber(out, value, decimalSeparator);
    return;
  }
  std::array<char, kLongestText> buffer;
  const char* const end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, *decimals)
          .ptr;
  std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string_view::npos) text.remove_prefix(1);
  const std::size_t start = out.size();
  out += text;
  std::replace(out.begin() + static_cast<std::ptrdiff_t>(start), out.end(), '.', decimalSeparator);
}

}  // namespace tarnlog::host
