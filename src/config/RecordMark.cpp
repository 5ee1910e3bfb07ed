#include "config/RecordMark.h"

#include <cstddef>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

/// The description stands behind declaration, stylesheet and root.
constexpr std::size_t kBeginning = 4096;
constexpr std::string_view kTextHeader = "time\tevent";
constexpr std::string_view kRoot = "<Tarnlog2000";
constexpr std::string_view kDescription = "<Description>";

std::string_view descriptionIn(std::string_view beginning) {
  const std::size_t root = beginning.find(kRoot);
  const std::size_t element =
      root == std::string_view::npos ? root : beginning.find(kDescription, root + kRoot.size());
  return element == std::string_view::npos ? "" : beginning.substr(element + kDescription.size());
}

}  // namespace

bool describesRecord(std::string_view description) {
  return description.starts_with("Data file") || description.starts_with("Event");
}

bool isRecordFile(const FileSystem& files, const std::string& fileName) {
  std::string beginning;
  skipOnFailure([&] { beginning = files.readBeginning(fileName, kBeginning); });
  return beginning.starts_with(kTextHeader) || describesRecord(descriptionIn(beginning));
}

}  // namespace tarnlog
