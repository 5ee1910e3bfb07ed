#include "ui/main/ConfigurationDesk.h"

#include "platform/base/TarnError.h"

namespace tarnlog {

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
  become({}, false, {});
}

oTarnParameters& ConfigurationDesk::required(oTarnParameters* parameters, const char* operation) {
  if (parameters == nullptr) throw TarnError(1, operation, "Parameters not defined");
  return *parameters;
}

void ConfigurationDesk::load(const std::string& fileName) {
  oTarnParameters& parameters = required(parameters_.get(), "Tarn2001.OpenConfigFile");
  try {
    std::vector<Lack> lacks = loadForSession(parameters, files_, fileName, *session_);
    become(fileName, false, std::move(lacks));
  } catch (const std::exception&) {
    become({}, false, {});
    throw;
  }
}

void ConfigurationDesk::save(const std::string& fileName) {
  required(known_.lock().get(), "Tarn2001.OuvrirSelecteurFichier")
      .SaveXmlConfiguration(files_, fileName, stylesheetUrl_);
  become(fileName, false, std::move(lacks_));
}

void ConfigurationDesk::noteEdit() {
  if (changed_) return;
  changed_ = true;
  if (stateHandler_) stateHandler_();
}

void ConfigurationDesk::become(std::string fileName, bool changed, std::vector<Lack> lacks) {
  fileName_ = std::move(fileName);
  changed_ = changed;
  lacks_ = std::move(lacks);
  if (stateHandler_) stateHandler_();
}

}  // namespace tarnlog
