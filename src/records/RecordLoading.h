#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/FollowedFile.h"
#include "records/RecordTable.h"
#include "records/TableReader.h"

namespace tarnlog {

/// Reads a whole file at once. Raises a TarnError as `openRecord` and `RecordReader::read` do.
RecordTable loadRecord(const std::string& path);
/// The same of a table of another program.
RecordTable loadForeignTable(const std::string& path, const ForeignTableChoice& choice);

/// Reads a file in the background, from its beginning to its end, and then what is written to it. Whoever
/// looks at it asks `newest` now and then (10 to 20 times a second): the first rows are there before a tenth
/// of the file is read.
class RecordLoading {
 public:
  enum class State {
    Reading,
    Following,  ///< all is read; what comes behind it is read, too
    Ended,      ///< all is read, and the file cannot grow any more, or was removed
    Failed
  };

  explicit RecordLoading(std::string path);
  /// A table of another program.
  RecordLoading(std::string path, ForeignTableChoice choice);
  /// Gives up reading.
  ~RecordLoading();
  RecordLoading(const RecordLoading&) = delete;
  RecordLoading& operator=(const RecordLoading&) = delete;

  State state() const;
  /// 0 to 1.
  double progress() const;
  /// As far as it has been read; null while not even the columns are known. The same pointer while nothing
  /// came. A newer one has all recordings of an older one, and their columns at the same places.
  std::shared_ptr<const RecordTable> newest() const;
  /// When it failed: what was wrong, with the path.
  std::string failure() const;
  /// It failed since it is none of the recorder's files; but it could be a table of another program.
  bool isForeignTable() const;

 private:
  using Clock = std::chrono::steady_clock;

  void run();
  std::unique_ptr<TableReader> open();
  bool readAll();
  bool waitAndReadOn();
  bool readOn();
  void end(const std::string& why);
  void fail(const std::string& why);
  void pause();
  void publish();
  void setState(State state);

  const std::string path_;
  const std::optional<ForeignTableChoice> choice_;

  // Of the thread alone.
  std::unique_ptr<FollowedFile> file_;
  std::unique_ptr<TableReader> reader_;
  std::vector<std::string> troubles_;  ///< what befell the file
  bool complete_ = false;
  bool settled_ = false;    ///< read once more since the file changed
  int failures_ = 0;        ///< to read it on, one after another
  Clock::time_point next_;  ///< when to publish

  mutable std::mutex mutex_;  ///< for what follows
  std::condition_variable wake_;
  bool givenUp_ = false;
  bool foreign_ = false;
  State state_ = State::Reading;
  std::string failure_;
  std::shared_ptr<const RecordTable> newest_;
  double progress_ = 0;

  std::thread thread_;  ///< last, so that it begins when all else is there
};

}  // namespace tarnlog
