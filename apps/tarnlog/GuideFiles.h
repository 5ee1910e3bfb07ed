#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/files/FileSystem.h"
#include "ui/common/Guide.h"

namespace tarnlog {

/// The section of a Markdown text with this heading (of the second level), up to the next one; empty without
/// it.
std::string sectionOf(std::string_view markdown, std::string_view heading);

/// The guide in this folder; an empty one when it is not there. `show` opens a file outside of the program.
/// `files` must outlive it.
Guide guideIn(const std::string& folder, const FileSystem& files,
              std::function<void(const std::string& path)> show);

}  // namespace tarnlog
