#include "platform/files/FileSystem.h"

namespace tarnlog {

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path.push_back('/');
  return path.append(name);
}

}  // namespace tarnlog
