#pragma once

#include <string>
#include <vector>

namespace tarnlog::host {

struct PdxEntry {
  std::string name;
  std::string bytes;
};

/// The ODX documents (.odx, .odx-d and the like) in a PDX container (ZIP); a bare ODX file is one document.
/// TarnError with the path when it is neither, is damaged, or would not fit in memory (256 MiB or 8 million
/// tags, unpacked).
std::vector<PdxEntry> readPdx(const std::string& path);
/// The same of a file's bytes; `path` names it in failures.
std::vector<PdxEntry> unpackPdx(std::string bytes, const std::string& path);

}  // namespace tarnlog::host
