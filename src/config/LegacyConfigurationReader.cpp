#include <memory>
#include <optional>
#include <utility>

#include "config/CatalogueMatch.h"
#include "config/ConfigurationReader.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

std::optional<std::int32_t> integerOf(XmlElement root, const char* name) {
  const XmlElement element = root.firstChild(name);
  return element ? wholeInteger(element.text()) : std::nullopt;
}

}  // namespace

void ReadXmlConfigV1(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                     LoadReport* report) {
  if (const auto period = integerOf(root, "Interval"); period && *period >= 0)
    parameters.recordingPeriod = *period;
  const std::int32_t colour = integerOf(root, "PlotColor").value_or(0);
  const std::int32_t points = integerOf(root, "PointsToDisplay").value_or(0);
  std::int32_t next = 1;
  for (const XmlElement data : root.selectNodes("Datas/Data")) {
    auto scope = std::make_unique<oTarnScope>();
    scope->DataName = data.firstChild("Name").text();
    scope->RequestName = data.firstChild("Requete").text();
    scope->EcuName = data.firstChild("UCE").text();
    scope->FunctionName = data.firstChild("Fonction").text();
    if (!takeFromCatalogue(*scope, session)) {
      reportUnknown(*scope, report);
      continue;
    }
    scope->index = next;
    scope->SetGraph("", true, 0, 100, points, colour);
    if (addOnce(parameters, std::move(scope), report)) ++next;
  }
}

}  // namespace tarnlog
