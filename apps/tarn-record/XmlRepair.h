#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnlog::record {

struct XmlRepair {
  bool whole = false;       ///< nothing was missing
  std::size_t dropped = 0;  ///< bytes of an unfinished element
  std::string text;         ///< the closed document
};

/// Closes an XML record or event file that was cut short: an unfinished child of the root is dropped, the
/// root is closed. None when the text is not such a file.
std::optional<XmlRepair> repairXml(std::string_view text);

}  // namespace tarnlog::record
