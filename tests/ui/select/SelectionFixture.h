#pragma once

#include <memory>
#include <string>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "tests/support/ScopeText.h"
#include "tests/support/SmallVehicle.h"
#include "tests/support/TreeText.h"
#include "ui/select/SelectionRules.h"

namespace tarnlog::test {

/// The catalogue of a small vehicle and a configuration without data.
struct SmallSelection {
  std::shared_ptr<SessionDocument> document =
      std::make_shared<SessionDocument>(std::move(SmallVehicle().catalogue));
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(MemorySettingsStore());

  /// The items in order: "Speed:G Load:I1 Key:D"; an `index` that is not the position shows behind a "#".
  std::string items() const {
    std::string text;
    std::int32_t position = 0;
    for (oTarnScope& scope : *parameters) {
      text += (text.empty() ? "" : " ") + scope.DataName + ":" + displayText(scope);
      if (scope.index != ++position) text += "#" + std::to_string(scope.index);
    }
    return text;
  }
  oTarnScope& item(const std::string& name) const {
    for (oTarnScope& scope : *parameters)
      if (scope.DataName == name) return scope;
    throw TarnError(1, "SmallSelection", name);
  }
};

}  // namespace tarnlog::test
