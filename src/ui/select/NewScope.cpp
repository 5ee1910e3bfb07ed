#include "ui/select/NewScope.h"

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kBlue = 0xFF0000;

void setDefaultDisplay(oTarnScope& scope, XmlElement data) {
  if (scope.isNumber())
    scope.SetGraph("", true, leadingNumber(data.attributeOrEmpty("min")),
                   leadingNumber(data.attributeOrEmpty("max")), oTarnGraph::kDefaultPoints, kBlue);
  else
    scope.SetNumeric("");
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
