#pragma once

#include <functional>
#include <string>

namespace tarnlog::host {

/// Something about the vehicle that people should know while they record: told when it begins and when it is
/// over.
struct Notice {
  std::string subject;  ///< the same at the beginning and at the end
  std::string text;     ///< a sentence without a full stop
  bool over = false;
};

using NoticeHandler = std::function<void(const Notice&)>;

}  // namespace tarnlog::host
