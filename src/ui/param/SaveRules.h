#pragma once

#include <string>
#include <vector>

#include "acquisition/MeasurementChoice.h"
#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog {

/// Where records go and what their files are called: the controls of the save frame as they stand on the
/// screen, and what using them does. Every change writes folder, format and prefix into the configuration,
/// and keeps folder and format as the defaults of new ones.
class SaveRules {
 public:
  /// What stands in the way of a record file.
  enum class Problem { none, folderMissing, folderReadOnly, prefixNamesFolder };

  /// Begins with the kept folder and format; without one, with the current folder and the first format.
  SaveRules(SettingsStore& settings, const FileSystem& files);

  /// Takes over what the configuration (null: none) holds. An empty folder leaves the one that is shown.
  void refresh(oTarnParameters* parameters);

  const std::string& folder() const { return folder_; }
  const std::string& format() const { return format_; }
  const std::string& prefix() const { return prefix_; }
  /// Not part of the configuration.
  MeasurementChoice& measurement() { return measurement_; }
  /// What the format list offers: all there are, and the configuration's own when it is another.
  const std::vector<std::string>& formats() const { return formats_; }
  /// Of the files that the file list shows.
  std::string pattern() const { return "*" + format_; }
  /// The name of a record that starts on 1 January 2001 at 01:12.
  std::string example() const;
  /// Looks at the folder as it is now.
  Problem problem() const;

  /// Each tells whether the configuration changed.
  bool setFolder(const std::string& folder);
  /// Goes to the current folder when that is on this drive, else to the top of the drive.
  bool setDrive(const std::string& driveFolder, const std::vector<std::string>& drives);
  bool setFormat(const std::string& format);
  bool setPrefix(const std::string& prefix);

 private:
  bool update();
  void takeFormat(const std::string& format);

  SettingsStore& settings_;
  MeasurementChoice measurement_;
  const FileSystem& files_;
  oTarnParameters* parameters_ = nullptr;
  std::string folder_;
  std::string format_;
  std::string prefix_;
  std::vector<std::string> formats_;
};

}  // namespace tarnlog
