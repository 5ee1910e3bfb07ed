#pragma once

#include <memory>
#include <string>

#include "config/oTarnParameters.h"
#include "platform/settings/SettingsStore.h"
#include "tests/support/SmallVehicle.h"

namespace tarnlog::test {

/// The small vehicle, with an ECU each that cannot be offered, or offered and not added.
struct InitFixture {
  InitFixture() {
    session.addEcu("Nowhere", "None", 0).addRequest("Ping");
    session.addEcu("Everybody", "Broadcast", 255).addRequest("Ping");
    session.addEcu("Far", "Far", 0x18DA).addRequest("Close");
    session.addEcu("Farther", "Farther", 0x18DAF110).addRequest("Too far");
  }

  /// "Engine/Reset Brakes/Bleed", with the addresses and the order checked.
  std::string scenario() const {
    std::string text;
    int position = 0;
    for (const oScenarioRequest& request : *parameters->initScenario) {
      if (request.Order != ++position) text += "(wrong order) ";
      text += (position == 1 ? "" : " ") + request.EcuName + "/" + request.RequestName;
    }
    return text;
  }

  SmallVehicle vehicle;
  ScriptedSession& session = vehicle.session;
  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
};

}  // namespace tarnlog::test
