#include "apps/tarnlog/GuideFiles.h"

#include <utility>

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr const char* kFirstPage = "/first-record.md";
constexpr const char* kMessages = "/connecting-to-a-car.md";
constexpr const char* kMessagesHeading = "What the messages mean";
constexpr std::string_view kBeforeHeading = "\n## ";

}  // namespace

std::string sectionOf(std::string_view markdown, std::string_view heading) {
  const std::size_t begin = markdown.find(std::string(kBeforeHeading) + std::string(heading) + "\n");
  if (begin == std::string_view::npos) return {};
  const std::size_t end = markdown.find(kBeforeHeading, begin + 1);
  return std::string(markdown.substr(begin + 1, end - begin - 1));
}

Guide guideIn(const std::string& folder, const FileSystem& files,
              std::function<void(const std::string& path)> show) {
  Guide guide;
  if (files.fileExists(folder + kFirstPage))
    guide.open = [path = folder + kFirstPage, show = std::move(show)] { show(path); };
  if (files.fileExists(folder + kMessages))
    guide.messages = [path = folder + kMessages, &files] {
      return toQString(sectionOf(files.readAll(path), kMessagesHeading));
    };
  return guide;
}

}  // namespace tarnlog
