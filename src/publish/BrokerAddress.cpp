#include "publish/BrokerAddress.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/base/TarnError.h"
#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

constexpr std::uint16_t kPlainPort = 1883;
constexpr std::uint16_t kTlsPort = 8883;
constexpr std::size_t kLongestTopic = 1000;
constexpr std::string_view kExpected = "expected mqtt://HOST[:PORT]/TOPIC, or mqtts:// over TLS";

[[noreturn]] void refuse(const std::string& what) {
  throw TarnError(1, "BrokerAddress", "the broker's address: " + what);
}

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::string_view takeScheme(std::string_view& rest) {
  for (const std::string_view scheme : {"mqtt://", "mqtts://"})
    if (rest.starts_with(scheme)) {
      rest.remove_prefix(scheme.size());
      return scheme;
    }
  refuse(std::string(kExpected));
}

std::uint16_t portOf(std::string_view text) {
  unsigned port = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), port);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size() || port == 0 || port > 0xFFFF)
    refuse("the port: expected a number from 1 to 65535");
  return static_cast<std::uint16_t>(port);
}

/// An IPv6 address stands in brackets.
void readHost(std::string_view text, BrokerAddress& address) {
  const std::size_t bracket = text.starts_with('[') ? text.find(']') : std::string_view::npos;
  const std::size_t colon = text.find(':', bracket == std::string_view::npos ? 0 : bracket);
  if (colon != std::string_view::npos) address.port = portOf(text.substr(colon + 1));
  std::string_view host = text.substr(0, colon);
  if (bracket != std::string_view::npos) host = host.substr(1, bracket - 1);
  if (host.empty() || std::ranges::any_of(host, [](char c) { return isControl(c) || c == ' '; }))
    refuse("no host, " + std::string(kExpected));
  address.host = host;
}

std::string topicOf(std::string_view text) {
  while (text.ends_with('/')) text.remove_suffix(1);
  if (text.empty()) refuse("no topic, " + std::string(kExpected));
  if (text.find_first_of("+#?") != std::string_view::npos || std::ranges::any_of(text, isControl) ||
      !isUtf8(text) || text.starts_with('$') || text.find("//") != std::string_view::npos ||
      text.size() > kLongestTopic)
    refuse("the topic: expected names with \"/\" between them, without \"+\", \"#\", \"?\" and \"$\"");
  return std::string(text);
}

}  // namespace

std::string BrokerAddress::text() const {
  const bool brackets = host.find(':') != std::string::npos;
  return (encrypted ? "mqtts://" : "mqtt://") + (brackets ? "[" + host + "]" : host) + ":" +
         std::to_string(port) + "/" + topic;
}

BrokerAddress parseBrokerAddress(std::string_view url) {
  std::string_view rest = url;
  BrokerAddress address;
  address.encrypted = takeScheme(rest) == "mqtts://";
  address.port = address.encrypted ? kTlsPort : kPlainPort;
  const std::size_t slash = std::min(rest.find('/'), rest.size());
  const std::string_view host = rest.substr(0, slash);
  if (rest.find('@') != std::string_view::npos)
    refuse(
        "user and password do not belong there, where others see them: expected in a file of their own "
        "(--publish-access)");
  readHost(host, address);
  address.topic = topicOf(rest.substr(std::min(slash + 1, rest.size())));
  return address;
}

}  // namespace tarnlog
