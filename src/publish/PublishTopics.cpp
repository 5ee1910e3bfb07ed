#include "publish/PublishTopics.h"

#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

void appendEscaped(std::string& level, char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  level += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
}

/// U+0080 to U+009F are control characters, too.
bool isLateControl(std::string_view name, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(name[i]); };
  return byte(at) == 0xC2 && at + 1 < name.size() && byte(at + 1) < 0xA0;
}

}  // namespace

std::string topicLevel(std::string_view name) {
  if (name.empty()) return "%";
  constexpr std::string_view kSigns = "/+#%\x7F";
  const bool utf8 = isUtf8(name);
  std::string level;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const auto byte = static_cast<unsigned char>(name[i]);
    if (utf8 && isLateControl(name, i)) {
      appendEscaped(level, name[i]);
      appendEscaped(level, name[++i]);
    } else if (byte < 0x20 || kSigns.find(name[i]) != std::string_view::npos || (byte >= 0x80 && !utf8)) {
      appendEscaped(level, name[i]);
    } else {
      level += name[i];
    }
  }
  return level;
}

}  // namespace tarnlog
