#pragma once

namespace tarnlog {

/// Address of the stylesheet that shows configurations and XML records in a browser, relative to the files.
inline constexpr const char* kStylesheetUrl = "tarnlog.xsl";

}  // namespace tarnlog
