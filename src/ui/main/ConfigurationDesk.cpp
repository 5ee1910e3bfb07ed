#include "ui/main/ConfigurationDesk.h"

#include <algorithm>

#include "config/RecordMark.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

/// An item with another function is in the configuration as it was in the file.
bool leftOut(const Lack& lack) { return lack.kind != Lack::Kind::WrongFunction; }

}  // namespace

ConfigurationDesk::ConfigurationDesk(FileSystem& files, std::string stylesheetUrl)
    : files_(files),
      stylesheetUrl_(std::move(stylesheetUrl)),
      session_(std::make_shared<const SessionDocument>()) {}

void ConfigurationDesk::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  parameters_ = std::move(parameters);
  if (parameters_ == nullptr) return;
  const bool same = !known_.owner_before(parameters_) && !parameters_.owner_before(known_);
  if (same) return;
  known_ = parameters_;
  become({}, {}, false);
}

oTarnParameters& ConfigurationDesk::required(oTarnParameters* parameters, const char* operation) {
  if (parameters == nullptr) throw TarnError(1, operation, "Parameters not defined");
  return *parameters;
}

void ConfigurationDesk::load(const std::string& fileName) {
  oTarnParameters& parameters = required(parameters_.get(), "Tarn2001.OpenConfigFile");
  if (loadCheck_) loadCheck_(fileName);
  try {
    SessionLoad load = loadForSession(parameters, files_, fileName, *session_);
    const bool incomplete = std::any_of(load.lacks.begin(), load.lacks.end(), leftOut);
    become(load.record ? "" : fileName, std::move(load), incomplete);
  } catch (const std::exception&) {
    become({}, {}, false);
    throw;
  }
}

void ConfigurationDesk::save(const std::string& fileName) {
  constexpr const char* kOperation = "Tarn2001.OuvrirSelecteurFichier";
  const oTarnParameters& parameters = required(known_.lock().get(), kOperation);
  if (isRecordFile(files_, fileName))
    throw TarnError(1, kOperation, fileName + " is a record, whose rows would be lost: choose another name");
  parameters.SaveXmlConfiguration(files_, fileName, stylesheetUrl_);
  become(fileName, {std::move(lacks_), false}, false);
}

void ConfigurationDesk::noteEdit() {
  if (changed_) return;
  changed_ = true;
  if (stateHandler_) stateHandler_();
}

void ConfigurationDesk::become(std::string fileName, SessionLoad load, bool incomplete) {
  fileName_ = std::move(fileName);
  changed_ = false;
  lacks_ = std::move(load.lacks);
  fromRecord_ = load.record;
  incomplete_ = incomplete;
  if (stateHandler_) stateHandler_();
}

}  // namespace tarnlog
