#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnlog::host {

/// How a user names a link: "elm327:///dev/ttyUSB0?baud=38400", "elm327://host:35000", "replay:drive.trace".
/// The kind may be in upper case. It may be left out for an adapter: "/dev/ttyUSB0", "192.168.0.10:35000".
/// Every refusal is a TarnError that names the link, the place and what was expected there.
class LinkUrl {
 public:
  explicit LinkUrl(std::string_view text);

  const std::string& text() const { return text_; }
  const std::string& scheme() const { return scheme_; }
  /// Behind "//" and before the port; empty when there is none. Brackets of an IPv6 address are taken off.
  const std::string& host() const { return host_; }
  std::optional<std::uint16_t> port() const { return port_; }
  /// From the slash behind host and port on; without "//" all that follows the scheme, up to the "?".
  const std::string& path() const { return path_; }

  /// Refuses an option that is none of these.
  void allowOptions(std::initializer_list<std::string_view> names) const;
  const std::string* option(std::string_view name) const;
  /// Decimal, or hexadecimal after "0x".
  std::optional<std::int64_t> numberOption(std::string_view name, std::int64_t lowest,
                                           std::int64_t highest) const;

  /// "link elm327://: host: expected ..., found nothing".
  [[noreturn]] void expected(std::string_view place, std::string_view what, std::string_view found) const;

 private:
  void readAuthority(std::string_view text);
  void readOptions(std::string_view text);

  std::string text_;
  std::string scheme_;
  std::string host_;
  std::optional<std::uint16_t> port_;
  std::string path_;
  std::vector<std::pair<std::string, std::string>> options_;
};

}  // namespace tarnlog::host
