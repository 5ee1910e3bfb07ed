#pragma once

#include <string>
#include <string_view>

namespace tarnlog::record {

/// A pattern as shells have it: * stands for any characters, ? for one. Case and the accents of western
/// European letters do not count.
class NamePattern {
 public:
  explicit NamePattern(std::string_view pattern);

  /// The whole name.
  bool matches(std::string_view name) const;
  /// The longest piece without * and ?.
  std::string core() const;

 private:
  std::string pattern_;  ///< folded
};

}  // namespace tarnlog::record
