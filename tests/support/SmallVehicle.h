#pragma once

#include <cstdint>

#include "catalogue/SessionDocument.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::test {

/// Two ECUs with a value of every type, and the catalogue of them:
///   Engine (Injection, 16): Status -> Speed, Load, Key, Mode, Raw;  Reset
///   Brakes (ABS, 40): Wheels -> Front, Rear;  Bleed
struct SmallVehicle {
  SmallVehicle() {
    auto& engine = session.addEcu("Engine", "Injection", 16);
    auto& status = engine.addRequest("Status", "21 80");
    status.addData("Speed", ferrox3::kDouble, "km/h", 0, 250).withDevice("Wheel sensor");
    status.addData("Load", ferrox3::kDouble, "%", 0, 100);
    status.addData("Key", ferrox3::kInteger, "", 0, 1);
    status.addData("Mode", ferrox3::kString);
    status.addData("Raw", ferrox3::kByteArray);
    engine.addRequest("Reset", "11 01");
    auto& brakes = session.addEcu("Brakes", "ABS", 40);
    auto& wheels = brakes.addRequest("Wheels", "21 01");
    wheels.addData("Front", ferrox3::kDouble, "bar", 0, 200);
    wheels.addData("Rear", ferrox3::kDouble, "bar", 0, 200);
    brakes.addRequest("Bleed", "30 01");
    catalogue = BuildSessionDocument(session);
  }

  ScriptedSession session;
  SessionDocument catalogue;
};

}  // namespace tarnlog::test
