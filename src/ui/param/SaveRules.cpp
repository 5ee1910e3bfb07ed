#include "ui/param/SaveRules.h"

#include <algorithm>
#include <cstddef>

#include "acquisition/RecordFormats.h"
#include "config/RegisterParameters.h"
#include "platform/base/TarnError.h"
#include "ui/param/Drives.h"

namespace tarnlog {

SaveRules::SaveRules(SettingsStore& settings, const FileSystem& files)
    : settings_(settings),
      measurement_(&settings),
      files_(files),
      folder_(GetRegisterParameter(settings, kRegisterPathName, "")) {
  for (const RecordFormat& format : recordFormats()) formats_.emplace_back(format.extension);
  takeFormat(GetRegisterParameter(settings, kRegisterFormat, std::string(recordFormats().front().extension)));
  if (folder_.empty()) folder_ = files.currentFolder();
}

void SaveRules::refresh(oTarnParameters* parameters) {
  parameters_ = parameters;
  if (parameters_ == nullptr) return;
  prefix_ = parameters_->filePrefix;
  takeFormat(parameters_->fileFormat);
  if (!parameters_->fileFolder.empty()) folder_ = parameters_->fileFolder;
}

void SaveRules::takeFormat(const std::string& format) {
  format_ = format;
  if (std::find(formats_.begin(), formats_.end(), format) == formats_.end()) formats_.push_back(format);
}

std::string SaveRules::example() const { return folder_ + "\\ " + prefix_ + "01012001_01h12" + format_; }

SaveRules::Problem SaveRules::problem() const {
  if (!files_.folderExists(folder_)) return Problem::folderMissing;
  if (!files_.folderWritable(folder_)) return Problem::folderReadOnly;
  return prefix_.find('/') == std::string::npos ? Problem::none : Problem::prefixNamesFolder;
}

bool SaveRules::setFolder(const std::string& folder) {
  if (parameters_ == nullptr) return false;
  folder_ = folder;
  return update();
}

bool SaveRules::setDrive(const std::string& driveFolder, const std::vector<std::string>& drives) {
  const std::string current = files_.currentFolder();
  const int drive = driveOf(current, drives);
  return setFolder(drive >= 0 && drives[static_cast<std::size_t>(drive)] == driveFolder ? current
                                                                                        : driveFolder);
}

bool SaveRules::setFormat(const std::string& format) {
  if (parameters_ == nullptr) return false;
  format_ = format;
  return update();
}

bool SaveRules::setPrefix(const std::string& prefix) {
  if (parameters_ == nullptr) return false;
  prefix_ = prefix;
  return update();
}

bool SaveRules::update() {
  const bool changed = parameters_->filePrefix != prefix_ || parameters_->fileFolder != folder_ ||
                       parameters_->fileFormat != format_;
  parameters_->filePrefix = prefix_;
  parameters_->fileFolder = folder_;
  parameters_->fileFormat = format_;
  skipOnFailure([&] { SetRegisterParameter(settings_, kRegisterPathName, folder_); });
  skipOnFailure([&] { SetRegisterParameter(settings_, kRegisterFormat, format_); });
  return changed;
}

}  // namespace tarnlog
