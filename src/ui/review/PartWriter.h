#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "exports/PartExport.h"

namespace tarnlog {

/// Writes a part of a record in the background. Destroying it gives up.
class PartWriter {
 public:
  explicit PartWriter(PartChoice part);
  ~PartWriter();
  PartWriter(const PartWriter&) = delete;
  PartWriter& operator=(const PartWriter&) = delete;

  const PartChoice& part() const { return part_; }
  void cancel() { cancelled_ = true; }
  bool done() const { return done_; }
  /// Once done: it was written; else why not, empty when it was cancelled.
  bool written() const { return written_; }
  const std::string& failure() const { return failure_; }

 private:
  void run();

  PartChoice part_;
  std::atomic<bool> cancelled_ = false;
  std::atomic<bool> done_ = false;
  bool written_ = false;
  std::string failure_;
  std::thread thread_;  ///< last, so that it begins when all else is there
};

}  // namespace tarnlog
