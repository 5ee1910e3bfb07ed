#include "config/AddDatum.h"

#include <memory>
#include <utility>

#include "config/CatalogueMatch.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

oTarnScope& addDatum(oTarnParameters& parameters, const SessionDocument& session, const std::string& ecu,
                     const std::string& request, const std::string& data) {
  auto scope = std::make_unique<oTarnScope>();
  scope->EcuName = ecu;
  scope->RequestName = request;
  scope->DataName = data;
  if (!takeFromCatalogue(*scope, session))
    throw TarnError(1, "addDatum", ecu + "/" + request + "/" + data + ": the vehicle does not offer it");
  if (oTarnScope* const there = parameters.Item(scope->DataKey); there != nullptr) return *there;
  const XmlElement found = FindSessionData(session, ecu, request, data, oTarnScope::kNoAddress);
  scope->FunctionName = found.parent().parent().attributeOrEmpty("function");
  return parameters.AddScope(std::move(scope));
}

}  // namespace tarnlog
