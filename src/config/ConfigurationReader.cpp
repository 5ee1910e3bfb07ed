#include "config/ConfigurationReader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "config/CatalogueMatch.h"
#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr const char* kLoadError = "LoadXmlConfiguration load error";

std::optional<std::int16_t> shortAddress(XmlElement request) {
  const auto text = request.attribute("Address");
  const auto number = text ? wholeInteger(*text) : std::nullopt;
  using Limits = std::numeric_limits<std::int16_t>;
  if (!number || *number < Limits::min() || *number > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(*number);
}

void readScenarioRequest(oScenario& scenario, XmlElement request, const SessionDocument& session,
                         LoadReport* report) {
  const std::string name(request.attributeOrEmpty("Name"));
  const std::string ecuName(request.attributeOrEmpty("EcuName"));
  const auto address = shortAddress(request);
  const XmlElement known = name.empty() || ecuName.empty() || !address
                               ? XmlElement()
                               : FindSessionRequest(session, ecuName, name, *address);
  if (known)
    scenario.Add(name, std::string(known.parent().attributeOrEmpty("name")), *address);
  else if (report != nullptr)
    report->scenarioRequests.push_back({ecuName, name, "", false});
}

void readRecording(oTarnParameters& parameters, XmlElement recording) {
  if (const auto period = recording.attribute("period"))
    if (const auto seconds = wholeInteger(*period); seconds && *seconds >= 0)
      parameters.recordingPeriod = *seconds;
  const XmlElement file = recording.firstChild("File");
  if (const auto prefix = file.attribute("prefix")) parameters.filePrefix = *prefix;
  if (const auto folder = file.attribute("folder")) parameters.fileFolder = *folder;
  if (const auto format = file.attribute("format")) parameters.fileFormat = *format;
}

void ReadXmlDatas(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                  LoadReport* report) {
  for (const XmlElement element : root.selectNodes("Datas/Data")) {
    auto scope = std::make_unique<oTarnScope>();
    scope->SetXml(element);
    if (takeFromCatalogue(*scope, session))
      addOnce(parameters, std::move(scope), report);
    else
      reportUnknown(*scope, report);
  }
}

XmlDocument parsed(const FileSystem& files, const std::string& fileName) {
  std::string bytes;
  try {
    bytes = files.readAll(fileName);
  } catch (const TarnError& error) {
    throw TarnError(1, kLoadError, "File : " + fileName + ", Reason : " + error.description());
  }
  XmlDocument document;
  if (const auto error = document.parse(bytes)) {
    std::string description = "File : " + fileName;
    if (error->line != 0)
      description +=
          ", Line : " + std::to_string(error->line) + ", LinePos : " + std::to_string(error->position);
    throw TarnError(1, kLoadError, description + ", Reason : " + error->reason);
  }
  return document;
}

}  // namespace

void ReadXmlParameters(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                       LoadReport* report) {
  const XmlElement element = root.firstChild("Parameters");
  if (!element) return;
  if (const XmlElement comment = element.firstChild("Comment")) parameters.userDescription = comment.text();
  if (const XmlElement start = element.firstChild("StartSession")) parameters.startSession = start.text();
  parameters.initScenario = std::make_shared<oScenario>();
  for (const XmlElement request : element.selectNodes("InitScenario/Request"))
    readScenarioRequest(*parameters.initScenario, request, session, report);
  readRecording(parameters, element.firstChild("Recording"));
  parameters.startTrigger->ReadTriggerStart(element);
  parameters.stopTrigger->ReadTriggerStop(element);
  ReadXmlDatas(parameters, root, session, report);
}

void oTarnParameters::LoadXmlConfiguration(const FileSystem& files, const std::string& fileName,
                                           const SessionDocument& session, LoadReport* report) {
  const XmlDocument document = parsed(files, fileName);
  const XmlElement root = document.selectSingleNode("Tarnlog2000");
  if (!root) throw TarnError(1, kLoadError, "the file " + fileName + " is not a Tarnlog file");
  std::string version(root.attributeOrEmpty("Version"));
  std::replace(version.begin(), version.end(), ',', '.');
  if (version == "2.0")
    ReadXmlParameters(*this, root, session, report);
  else if (version == "1.0")
    ReadXmlConfigV1(*this, root, session, report);
  else
    throw TarnError(1, kLoadError, "File " + fileName + " : Unknown Tarnlog version (" + version + ")");
}

}  // namespace tarnlog
