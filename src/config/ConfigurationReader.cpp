#include "config/ConfigurationReader.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "config/CatalogueMatch.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

void readChildText(XmlElement element, const char* name, std::string& text) {
  if (const XmlElement child = element.firstChild(name)) text = child.text();
}

void readText(XmlElement element, const char* name, std::string& text) {
  if (const auto value = element.attribute(name)) text = *value;
}

/// None when it is no number, or does not fit: an address that is cut off would reach another ECU.
std::optional<std::int16_t> scenarioAddress(XmlElement request) {
  const auto value = wholeInteger(request.attributeOrEmpty("Address"));
  using Limits = std::numeric_limits<std::int16_t>;
  if (!value || *value < Limits::min() || *value > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(*value);
}

void readScenarioRequest(oScenario& scenario, XmlElement element, const SessionDocument& session,
                         LoadReport* report) {
  const std::string name(element.attributeOrEmpty("Name"));
  const std::string ecuName(element.attributeOrEmpty("EcuName"));
  const auto address = scenarioAddress(element);
  const XmlElement found = name.empty() || ecuName.empty() || !address
                               ? XmlElement()
                               : FindSessionRequest(session, ecuName, name, *address);
  if (found)
    scenario.Add(name, std::string(found.parent().attributeOrEmpty("name")), *address);
  else if (report != nullptr)
    report->scenarioRequests.push_back({ecuName, name, "", false});
}

}  // namespace

void ReadXmlParameters(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                       LoadReport* report) {
  const XmlElement element = root.firstChild("Parameters");
  if (!element) {
    if (report != nullptr) report->noParameters = true;
    return;
  }
  readChildText(element, "Comment", parameters.userDescription);
  readChildText(element, "StartSession", parameters.startSession);
  parameters.initScenario = std::make_shared<oScenario>();
  for (const XmlElement request : element.selectNodes("InitScenario/Request"))
    skipOnFailure([&] { readScenarioRequest(*parameters.initScenario, request, session, report); });
  parameters.setRecordingPeriod(element.firstChild("Recording").attributeOrEmpty("period"));
  const XmlElement file = element.selectSingleNode("Recording/File");
  readText(file, "prefix", parameters.filePrefix);
  readText(file, "folder", parameters.fileFolder);
  readText(file, "format", parameters.fileFormat);
  parameters.startTrigger->ReadTriggerStart(element);
  parameters.stopTrigger->ReadTriggerStop(element);
  ReadXmlDatas(parameters, root, session, report);
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

}  // namespace tarnlog
