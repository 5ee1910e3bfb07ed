#pragma once

#include <QCoreApplication>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tarnlog {

class NoticeBar;

/// Who knows about records that a kill or a power cut left without their end.
struct UnfinishedRecords {
  /// Those in this folder that nobody writes any more; with `ofVehicles` also those in the folders below it.
  std::function<std::vector<std::string>(const std::string& folder, bool ofVehicles)> find = {};
  /// Closes one and says what was done; may raise.
  std::function<std::string(const std::string& path)> close = {};
};

/// Names such records in a message, with a button that closes them.
class UnfinishedOffer {
  Q_DECLARE_TR_FUNCTIONS(UnfinishedOffer)
 public:
  /// `notices` outlives it. While `busy` it takes no time from an acquisition.
  UnfinishedOffer(UnfinishedRecords records, NoticeBar& notices, std::function<bool()> busy);

  /// Looks into a folder, once.
  void lookInto(const std::string& folder, bool ofVehicles);

 private:
  void show(const QString& hint = {});
  void close();

  UnfinishedRecords records_;
  NoticeBar& notices_;
  std::function<bool()> busy_;
  std::set<std::string> looked_;
  std::vector<std::string> found_;
};

}  // namespace tarnlog
