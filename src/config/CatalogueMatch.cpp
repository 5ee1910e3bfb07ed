#include "config/CatalogueMatch.h"

#include <utility>

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

void note(const oTarnScope& scope, bool duplicate, LoadReport* report) {
  if (report != nullptr)
    report->data.push_back({scope.EcuName, scope.RequestName, scope.DataName, duplicate});
}

}  // namespace

bool takeFromCatalogue(oTarnScope& scope, const SessionDocument& session) {
  const XmlElement data =
      FindSessionData(session, scope.EcuName, scope.RequestName, scope.DataName, scope.FunctionAddress);
  if (!data) return false;
  const XmlElement ecu = data.parent().parent();
  scope.DataKey = data.attributeOrEmpty("c");
  scope.varType = leadingInteger(data.attributeOrEmpty("type"));
  scope.Unit = data.attributeOrEmpty("unit");
  scope.DeviceName = data.attributeOrEmpty("device");
  scope.EcuName = ecu.attributeOrEmpty("name");
  scope.FunctionAddress = leadingInteger(ecu.attributeOrEmpty("address"));
  return true;
}

void reportUnknown(const oTarnScope& scope, LoadReport* report) { note(scope, false, report); }

void addOnce(oTarnParameters& parameters, std::unique_ptr<oTarnScope> scope, LoadReport* report) {
  if (parameters.Item(scope->DataKey) != nullptr)
    note(*scope, true, report);
  else
    parameters.AddScope(std::move(scope));
}

}  // namespace tarnlog
