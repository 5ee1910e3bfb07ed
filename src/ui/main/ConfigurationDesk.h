#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/SessionLoad.h"
#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"

namespace tarnlog {

/// The configuration that the screens edit, the file that it was read from or written to, and whether it was
/// changed since. `files` must outlive it.
class ConfigurationDesk {
 public:
  ConfigurationDesk(FileSystem& files, std::string stylesheetUrl);

  /// The catalogue of the vehicle that configurations are loaded for.
  void setSession(std::shared_ptr<const SessionDocument> session) { session_ = std::move(session); }

  /// Another object than the last one begins anew: without a file, unchanged. Null puts the object away
  /// without forgetting which one it was.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }

  /// Asked before each load; raises the TarnError of a file that is not taken. May be empty.
  void setLoadCheck(std::function<void(const std::string& fileName)> check) { loadCheck_ = std::move(check); }

  /// Loads into the object, which is then unchanged and belongs to the file, unless that is a record. Raises
  /// the loader's TarnError; the configuration is then without data and without a file, so that saving it
  /// overwrites nothing. Raises error 1, "Parameters not defined", without an object; nothing has changed
  /// then.
  void load(const std::string& fileName);
  /// Also while the object is put away. Raises what the file system raises, and error 1 when the file is a
  /// record; file and `changed` are as before then.
  void save(const std::string& fileName);
  /// The user changed something.
  void noteEdit();

  /// Empty before the first load or save.
  const std::string& fileName() const { return fileName_; }
  bool changed() const { return changed_; }
  /// What the vehicle does not give of the loaded file.
  const std::vector<Lack>& lacks() const { return lacks_; }
  /// Parts of the file were left out at loading: saving over it would lose them.
  bool incomplete() const { return incomplete_; }
  /// The configuration came from a record and has no file of its own yet.
  bool fromRecord() const { return fromRecord_; }

  /// Called when file, `changed` or the lacks may be others.
  void setStateHandler(std::function<void()> handler) { stateHandler_ = std::move(handler); }

 private:
  void become(std::string fileName, SessionLoad load, bool incomplete);
  static oTarnParameters& required(oTarnParameters* parameters, const char* operation);

  FileSystem& files_;
  std::string stylesheetUrl_;
  std::shared_ptr<const SessionDocument> session_;
  std::shared_ptr<oTarnParameters> parameters_;
  std::weak_ptr<oTarnParameters> known_;
  std::string fileName_;
  bool changed_ = false;
  std::vector<Lack> lacks_;
  bool incomplete_ = false;
  bool fromRecord_ = false;
  std::function<void(const std::string&)> loadCheck_;
  std::function<void()> stateHandler_;
};

}  // namespace tarnlog
