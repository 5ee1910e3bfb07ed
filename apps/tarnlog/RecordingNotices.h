#pragma once

#include <QCoreApplication>
#include <functional>
#include <string>

#include "platform/files/WriteTrouble.h"
#include "samples/Quality.h"

namespace tarnlog {

class NoticeBar;

/// What the window tells of recordings in its bar: files that cannot be written, and how well it went.
class RecordingNotices {
  Q_DECLARE_TR_FUNCTIONS(RecordingNotices)

 public:
  /// `openParameters` shows where files go, `lookAt` a record.
  RecordingNotices(NoticeBar& bar, std::function<void()> openParameters,
                   std::function<void(const std::string& path)> lookAt);

  void writeTrouble(const WriteTrouble& trouble);
  void openFailed(const std::string& why);
  void measurementFailed(const std::string& why);
  /// Trouble with publishing, or that it goes on.
  void publishing(const std::string& text, bool trouble);
  /// The newest recording, of so many data, and how well it went.
  void recorded(const std::string& path, const Quality& quality, int data);

 private:
  NoticeBar& bar_;
  std::function<void()> openParameters_;
  std::function<void(const std::string& path)> lookAt_;
};

}  // namespace tarnlog
