#pragma once

#include <memory>
#include <string>

#include "config/oTarnParameters.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog::test {

/// A configuration with two data items, and the settings that it came from.
struct ParamFixture {
  ParamFixture() {
    addItem("c1", "Injection", "Speed", "Block1", "km/h");
    addItem("c2", "Injection", "Load", "Block2", "%");
  }

  void addItem(const std::string& key, const std::string& ecu, const std::string& data,
               const std::string& request, const std::string& unit) {
    oTarnScope& item = parameters->Add(key);
    item.EcuName = ecu;
    item.DataName = data;
    item.RequestName = request;
    item.Unit = unit;
    item.index = parameters->Count();
  }
  std::string setting(const std::string& name) const { return settings.read(name).value_or("(none)"); }

  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
};

}  // namespace tarnlog::test
