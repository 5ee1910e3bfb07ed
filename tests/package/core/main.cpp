#include <cstdio>
#include <string>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "config/SessionLoad.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/RunLoop.h"
#include "platform/time/SystemClock.h"

/// core EXAMPLES_FOLDER: starts an acquisition of an example and tells how many data it has.
int main(int, char** argv) {
  using namespace tarnlog;
  const std::string example = std::string(argv[1]) + "/kwp2000-car";
  SystemFileSystem files;
  host::SystemLinkClock linkClock;
  const auto vehicle =
      host::openVehicle(example + ".vehicle.json", files, systemLocale(), linkClock, nullptr);
  auto parameters = std::make_shared<oTarnParameters>(MemorySettingsStore());
  loadForSession(*parameters, files, example + ".xml", BuildSessionDocument(vehicle->session()));

  SilentAcqScreen screen;
  SystemClock clock;
  RunLoop loop;
  const auto timer = loop.createTimer();
  TarnAcq acq(screen, {clock, *timer, files, systemLocale(), "tarnlog.xsl"});
  acq.setSession(&vehicle->session());
  acq.StartReadingData(parameters);
  std::printf("%d data\n", parameters->Count());
  return acq.AcqState() == TarnAcq::kInitialise ? 0 : 1;
}
