#include "apps/common/LoadedConfiguration.h"

#include "apps/common/BadInput.h"
#include "apps/common/RecordPrefix.h"
#include "platform/settings/FileSettingsStore.h"
#include "platform/text/Told.h"

namespace tarnlog {

namespace {

std::string lineOf(const Lack& lack) {
  switch (lack.kind) {
    case Lack::Kind::Parameters:
      return Told::tr("nothing was read: the file has no element \"Parameters\"");
    case Lack::Kind::Data:
      return Told::tr("not offered by this vehicle: {}", lack.path);
    case Lack::Kind::Duplicate:
      return Told::tr("configured twice, taken once: {}", lack.path);
    case Lack::Kind::WrongFunction:
      return Told::tr("not acquired, the ECU element's function is not the one in the vehicle: {}",
                      lack.path);
    case Lack::Kind::ScenarioRequest:
      return Told::tr("init scenario request not offered by this vehicle: {}", lack.path);
    case Lack::Kind::StartTrigger:
      return Told::tr("the start trigger watches data that this vehicle does not offer: start is manual");
    case Lack::Kind::StopTrigger:
      return Told::tr("the stop trigger watches data that this vehicle does not offer: stop is manual");
  }
  return {};
}

}  // namespace

LoadedConfiguration loadConfiguration(const FileSystem& files, const SettingsStore& settings,
                                      const std::string& file, const SessionDocument& session) {
  LoadedConfiguration loaded;
  loaded.parameters = std::make_shared<oTarnParameters>(settings);
  loaded.lacks = loadForSession(*loaded.parameters, files, file, session).lacks;
  refusePrefixOutside(file, loaded.parameters->filePrefix);
  return loaded;
}

LoadedConfiguration loadToRecord(FileSystem& files, const std::string& file,
                                 const ferrox3::Session& session) {
  const FileSettingsStore settings(files, FileSettingsStore::defaultPath());
  LoadedConfiguration loaded = loadConfiguration(files, settings, file, BuildSessionDocument(session));
  if (loaded.parameters->Count() != 0) return loaded;
  std::string lacking;
  for (const std::string& line : lackingLines(loaded)) lacking += "\n  " + line;
  throw BadInput(Told::tr("{}: no data to acquire, this vehicle offers none of the data", file) + lacking);
}

std::vector<std::string> lackingLines(const LoadedConfiguration& configuration) {
  std::vector<std::string> lines;
  for (const Lack& lack : configuration.lacks) lines.push_back(lineOf(lack));
  return lines;
}

}  // namespace tarnlog
