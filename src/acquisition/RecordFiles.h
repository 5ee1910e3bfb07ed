#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "acquisition/DataFile.h"
#include "acquisition/RecordFormats.h"
#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// The record file and the event file of an acquisition: names, headers, opening and closing. At most one of
/// each is open. Opening raises a TarnError when the file cannot be made.
class RecordFiles {
 public:
  using Columns = std::vector<ferrox3::DataItem*>;
  using Finished = std::function<void(const std::string& path)>;
  using FolderRule = std::function<std::string(const std::string& folder)>;

  RecordFiles(FileSystem& files, const Clock& clock, UserLocale locale, std::string stylesheetUrl);
  ~RecordFiles();

  /// Starts an acquisition: whatever is left open is closed.
  void begin(std::shared_ptr<oTarnParameters> parameters, const Columns& columns);

  /// Opens the record file in the configured format, header written. A folder that does not exist changes the
  /// configuration's folder to the current one. False when the system gave no stream.
  bool openRecordFile();
  /// Opens the file of event `number` of the open record file, or with 0 an event file that belongs to none.
  void openEventFile(std::int32_t number);

  DataFile* record() const { return record_.file.get(); }
  DataFile* event() const { return event_.file.get(); }
  const std::string& recordPath() const { return recordPath_; }
  const std::string& eventPath() const { return event_.path; }
  std::vector<std::string> openPaths() const;
  /// Of the record file that is open, else of the one that was closed last.
  RowCount recordRows() const { return record_.file != nullptr ? record_.file->rows() : closedRows_; }
  /// Rows that are written now do not reach an open file.
  bool failing() const;

  /// Closes the record file, and the event file where its format wants that.
  void CloseRecordFiles();
  void closeEventFile();
  void closeAll();

  /// Not called for a file that is there no more, since it got nothing or was removed.
  void setFinished(Finished finished) { finished_ = std::move(finished); }
  /// Where the files go, given the folder of the configuration, which stays as it is.
  void setFolderRule(FolderRule rule) { folderRule_ = std::move(rule); }

 private:
  struct OpenFile {
    std::unique_ptr<DataFile> file;
    std::string path;
    std::string name;  ///< without folder and prefix
    const RecordFormat* format = nullptr;
  };

  OpenFile openNumbered(const std::string& folder, const std::string& name, DataFileHead head) const;
  DataFileHead head() const;
  std::string placeIn(const std::string& folder) const { return folderRule_ ? folderRule_(folder) : folder; }
  std::string eventDescription(std::int32_t number) const;
  void close(OpenFile& open);

  FileSystem& files_;
  const Clock& clock_;
  UserLocale locale_;
  std::string stylesheetUrl_;
  std::shared_ptr<oTarnParameters> parameters_;
  Columns columns_;
  std::string recordBaseName_;
  std::string recordPath_;
  RowCount closedRows_;
  OpenFile record_;
  OpenFile event_;
  Finished finished_;
  FolderRule folderRule_;
};

}  // namespace tarnlog
