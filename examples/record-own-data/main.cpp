#include <Tarnlog2001.h>

#include <chrono>
#include <cmath>
#include <cstdio>

/// record-own-data FOLDER: records 20 rows of two measures of a test bench and prints the file's path.
int main(int argc, char** argv) try {
  using namespace tarnlog;
  if (argc < 2) return 2;
  ferrox3::OwnSession session(systemLocale());
  const auto begin = std::chrono::steady_clock::now();
  session.add("Bench", "Sensors", {{"Torque", "Nm", 0, 400}, {"Temperature", "\u00B0C", -40, 150}}, [&] {
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    return std::vector{200 + 100 * std::sin(seconds.count()), 21.5};
  });

  auto parameters = std::make_shared<oTarnParameters>(MemorySettingsStore());
  const SessionDocument offered = BuildSessionDocument(session);
  addDatum(*parameters, offered, "Bench", "Sensors", "Torque");
  addDatum(*parameters, offered, "Bench", "Sensors", "Temperature");
  parameters->fileFolder = argv[1];
  parameters->recordingPeriod = 0;  // a row each polling cycle

  SilentAcqScreen screen;
  SystemClock clock;
  SystemFileSystem files;
  RunLoop loop;
  const auto timer = loop.createTimer();
  TarnAcq acq(screen, {clock, *timer, files, systemLocale(), {}});
  acq.setFileFinishedHandler([](const std::string& path) { std::puts(path.c_str()); });
  acq.setAcqStoppedHandler([&] { loop.quit(); });
  loop.setWakeHandler([&] {
    if (acq.hasRow() && !acq.Recording() && !acq.startPending()) acq.ToggleRecording();
    if (acq.rowsWritten() >= 20) acq.AskStopAcqNow();
  });
  acq.setSession(&session);
  acq.StartReadingData(parameters);
  loop.run();
} catch (const tarnlog::TarnError& error) {
  std::fprintf(stderr, "%s\n", error.description().c_str());
  return 1;
}
