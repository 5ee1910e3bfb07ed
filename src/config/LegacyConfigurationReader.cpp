#include "config/LegacyConfigurationReader.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "config/CatalogueMatch.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

std::string childText(XmlElement element, const char* name) { return element.firstChild(name).text(); }

std::unique_ptr<oTarnScope> readIdentity(XmlElement element) {
  auto scope = std::make_unique<oTarnScope>();
  scope->DataName = childText(element, "Name");
  scope->RequestName = childText(element, "Requete");
  scope->EcuName = childText(element, "UCE");
  scope->FunctionName = childText(element, "Fonction");
  return scope;
}

}  // namespace

void ReadXmlConfigV1(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                     LoadReport* report) {
  parameters.setRecordingPeriod(childText(root, "Interval"));
  const std::int32_t color = wholeInteger(childText(root, "PlotColor")).value_or(0);
  const std::int32_t points = wholeInteger(childText(root, "PointsToDisplay")).value_or(0);
  for (const XmlElement element : root.selectNodes("Datas/Data")) {
    auto scope = readIdentity(element);
    if (!takeFromCatalogue(*scope, session)) {
      reportUnknown(*scope, report);
      continue;
    }
    scope->SetGraph("", true, 0, 100, points, color);
    addOnce(parameters, std::move(scope), report);
  }
  parameters.renumber();
}

}  // namespace tarnlog
