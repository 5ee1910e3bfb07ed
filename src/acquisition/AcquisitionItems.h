#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "acquisition/AcqScreen.h"
#include "acquisition/LevelTrigger.h"
#include "config/oTarnParameters.h"
#include "display/GrapheItems.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// What one acquisition reads: the data items that the session offers of those that are configured, in
/// configuration order, the host's lists that poll them, and the items that the triggers watch. Item k is row
/// k of the value list and column k of buffers and files.
class AcquisitionItems {
 public:
  ~AcquisitionItems();

  /// Finds the items, fills the value list and the display model, and obtains the poll set. An item that the
  /// session does not offer is skipped. Returns how many were found.
  std::int32_t BuildAcquisitionList(ferrox3::Session& session, const oTarnParameters& parameters,
                                    AcqScreen& screen, GrapheItems& display);

  /// Tells the host's lists to finish and releases them.
  void release();
  bool held() const { return list_ != nullptr || pollSet_ != nullptr; }

  const std::vector<ferrox3::DataItem*>& items() const { return items_; }
  const LevelTrigger& startTrigger() const { return start_; }
  const LevelTrigger& stopTrigger() const { return stop_; }
  ferrox3::PollSet& pollSet() const { return *pollSet_; }

 private:
  void watch(const oTarnParameters& parameters, const oTarnScope& scope, const ferrox3::DataItem& item);

  std::vector<ferrox3::DataItem*> items_;
  LevelTrigger start_;
  LevelTrigger stop_;
  std::unique_ptr<ferrox3::AcquisitionList> list_;
  std::unique_ptr<ferrox3::PollSet> pollSet_;
};

}  // namespace tarnlog
