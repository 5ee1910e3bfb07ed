#include "ui/select/NewScope.h"

#include "platform/ferrox3/Value.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kBlue = 0xFF0000;

void setDefaultDisplay(oTarnScope& scope, XmlElement data) {
  if (scope.varType != ferrox3::kInteger && scope.varType != ferrox3::kDouble) {
    scope.SetNumeric("");
    return;
  }
  scope.SetGraph("", true, 0, 100, oTarnGraph::kDefaultPoints, kBlue);
  scope.oTarnGraph->AxeYmini = leadingNumber(data.attributeOrEmpty("min"));
  scope.oTarnGraph->AxeYmaxi = leadingNumber(data.attributeOrEmpty("max"));
  scope.oTarnGraph->AxeYAuto = true;
}

}  // namespace

std::unique_ptr<oTarnScope> newScope(XmlElement data) {
  const XmlElement request = data.parent();
  const XmlElement uce = request.parent();
  auto scope = std::make_unique<oTarnScope>();
  scope->DataName = data.attributeOrEmpty("name");
  scope->RequestName = request.attributeOrEmpty("name");
  scope->EcuName = uce.attributeOrEmpty("name");
  scope->FunctionName = uce.attributeOrEmpty("function");
  scope->FunctionAddress = leadingInteger(uce.attributeOrEmpty("address"));
  scope->DeviceName = data.attributeOrEmpty("device");
  scope->varType = leadingInteger(data.attributeOrEmpty("type"));
  scope->Unit = data.attributeOrEmpty("unit");
  scope->DataKey = data.attributeOrEmpty("c");
  setDefaultDisplay(*scope, data);
  return scope;
}

}  // namespace tarnlog
