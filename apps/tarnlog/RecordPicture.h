#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarnlog {

/// A picture of records, made without a window.
struct PictureOptions {
  std::string output;                ///< ends with ".svg" or ".png"; replaced when it exists
  std::vector<std::string> records;  ///< of which the second and third are laid over the first, at its start
  std::vector<std::string> data;     ///< see `isCalled`; empty: those that the record's graphs show
  std::optional<double> from;        ///< seconds of the first record
  std::optional<double> till;
  std::string size = "1200x800";
};

/// Returns what is missing in the records, a line for each matter. Needs the toolkit's application. Raises
/// BadInput or a TarnError when an option cannot be used, a record not read or the picture not written.
std::string makePicture(const PictureOptions& options);

}  // namespace tarnlog
