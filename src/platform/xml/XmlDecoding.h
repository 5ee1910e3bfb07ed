#pragma once

#include <string>
#include <string_view>

namespace tarnlog {

/// The text of an XML file as UTF-8 without a byte-order mark: UTF-8 or UTF-16 with a mark, or the declared
/// encoding UTF-8, ISO-8859-1 or windows-1252. Bytes that are not UTF-8 are read as windows-1252 whatever is
/// declared: files from older recorders declare one and are written in the other. Never fails; what is no
/// character becomes U+FFFD.
std::string decodeXml(std::string_view bytes);

}  // namespace tarnlog
