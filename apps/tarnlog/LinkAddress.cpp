#include "apps/tarnlog/LinkAddress.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

#include "host/link/LinkUrl.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

struct Address {
  std::string place;       ///< a device, or a host
  std::uint16_t port = 0;  ///< 0: a device
  bool any = false;        ///< whichever gateway answers
};

std::string lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

/// A port may have several names, like those under /dev/serial/by-id.
std::string deviceAt(const std::string& path) {
  std::error_code error;
  const std::filesystem::path device = std::filesystem::weakly_canonical(path, error);
  return error ? path : device.string();
}

std::optional<Address> addressOf(const std::string& link) {
  constexpr std::uint16_t kAdapterPort = 35000;
  constexpr std::uint16_t kDoipPort = 13400;
  std::optional<Address> address;
  skipOnFailure([&] {
    const host::LinkUrl url(link);
    if (url.scheme() == "elm327" && url.host().empty())
      address = {deviceAt(url.path())};
    else if (url.scheme() == "elm327")
      address = {lower(url.host()), url.port().value_or(kAdapterPort)};
    else if (url.scheme() == "doip")
      address = {lower(url.host()), url.port().value_or(kDoipPort), url.host() == "*"};
  });
  return address;
}

}  // namespace

bool shareAddress(const std::string& link, const std::string& other) {
  const auto a = addressOf(link);
  const auto b = addressOf(other);
  if (!a || !b || a->port != b->port) return false;
  return a->any || b->any || a->place == b->place;
}

}  // namespace tarnlog
