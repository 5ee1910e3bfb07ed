#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "apps/common/LoadedConfiguration.h"
#include "catalogue/SessionDocument.h"
#include "host/vehicle/Vehicle.h"
#include "tests/support/RecorderParts.h"

namespace tarnlog::test {

inline const UserLocale kCommaLocale{',', '.', ':', "dd.mm.yyyy", "Hh:Nn:ss"};

/// What a car does and what is to be recorded of it. Moments are milliseconds since the start of the
/// acquisition, which is at 19:05:07 on 16 November 2026.
struct Recipe {
  std::string speed = "0:0";  ///< km/h from each moment on: "moment:value ..."
  std::string faults = {};    ///< entries of a vehicle description
  int latency = 4;            ///< of each request, in milliseconds

  std::vector<std::string> data = {"Status/Speed"};  ///< "request/data"
  int period = 0;                                    ///< seconds
  std::string start = {};                            ///< "" for the button, "rising 50", "falling 50"
  std::string stop = {};                             ///< the same, and "time 2"
  int watched = 1;                                   ///< index of the data that triggers watch
  int pre = 0;                                       ///< as stored: seconds, below 0 for history
  int post = 0;                                      ///< seconds
  std::string head = {};                             ///< further elements of "Parameters"
  std::string format = ".txt";
  std::string prefix = {};
  std::string folder = "/rec";

  host::LinkOptions link = {};  ///< none: the simulation that the rest describes
  std::function<std::unique_ptr<host::Link>(ManualLinkClock&)> makeLink = {};  ///< a link of the test's own

  std::map<std::string, std::string> inputs = {};  ///< further files

  UserLocale locale = {};
  Milliseconds clock = 1'000'000;  ///< the system's clock at the start
  bool started = true;             ///< the ECU is brought up, and values are polled from now on
};

/// One ECU, "Engine" (function "Injection", KWP2000). "Status": Speed (km/h), Température (21.5 °C), Pedal
/// (1, "Pressed") and Pump fault (1). "Identification": Part ("8200é") and Raw (0A 1B). "Reset": no data.
inline std::string vehicleDescription(const Recipe& recipe) {
  std::string times;
  std::string values;
  for (const std::string& word : words(recipe.speed)) {
    const std::size_t colon = word.find(':');
    times += (times.empty() ? "" : ",") + std::to_string(std::stod(word.substr(0, colon)) / 1000);
    values += (values.empty() ? "" : ",") + word.substr(colon + 1);
  }
  return R"({"name": "Car", "timeout": 100, "ecus": [{"name": "Engine", "function": "Injection", "address": 16,
    "protocol": "KWP2000", "initialisation": "10 81", "requests": [
      {"name": "Status", "frame": "21 80", "data": [
        {"name": "Speed", "byte": 2, "bytes": 2, "factor": 0.01, "unit": "km/h"},
        {"name": "Température", "byte": 4, "factor": 0.5, "offset": -40, "unit": "°C"},
        {"name": "Pedal", "byte": 5, "bit": 0, "bits": 1,
         "enumeration": [{"value": 0, "label": "Released"}, {"value": 1, "label": "Pressed"}]},
        {"name": "Pump fault", "byte": 5, "bit": 7, "bits": 1, "device": "Pump", "failure": true}]},
      {"name": "Identification", "frame": "1A 80", "data": [
        {"name": "Part", "byte": 2, "bytes": 6, "type": "text", "encoding": "latin1"},
        {"name": "Raw", "byte": 8, "type": "bytes"}]},
      {"name": "Reset", "frame": "30 01"}]}],
    "simulation": {"requests": [
      {"ecu": "Injection", "request": "Identification", "response": "5A 80 38 32 30 30 E9 00 0A 1B"},
      {"ecu": "Injection", "request": "Status", "response": "61 80 00 00 7B 81", "signals": {
        "Speed": {"kind": "table", "after": "hold", "times": [)" +
         times + R"(], "values": [)" + values + R"(]}}}], "latency": )" + std::to_string(recipe.latency) +
         R"(, "faults": [)" + recipe.faults + "]}}";
}

inline std::string triggerElement(const std::string& name, const std::string& text, int prepost,
                                  int watched) {
  const auto parts = words(text);
  std::string rest = "Manual'>";
  if (!parts.empty() && parts[0] == "time") rest = "Time'><Time seconde='" + parts[1] + "'/>";
  if (!parts.empty() && parts[0] != "time")
    rest = "Channel'><Channel edge='" + std::string(parts[0] == "rising" ? "1" : "-1") + "' level='" +
           parts[1] + "' index='" + std::to_string(watched) + "'/>";
  return "<" + name + " prepost='" + std::to_string(prepost) + "' restart='0' type='" + rest + "</" + name +
         ">";
}

inline std::string configuration(const Recipe& recipe) {
  std::string datas;
  for (std::size_t i = 0; i < recipe.data.size(); ++i) {
    const std::size_t slash = recipe.data[i].find('/');
    datas += "<Data index='" + std::to_string(i + 1) + "' name='" + recipe.data[i].substr(slash + 1) +
             "' request='" + recipe.data[i].substr(0, slash) +
             "'><ECU name='Engine' function='Injection' address='16'/><Scope type='None'/></Data>";
  }
  return "<Tarnlog2000 Version='2.0'><Parameters>" + recipe.head + "<Recording period='" +
         std::to_string(recipe.period) + "'><Trigger>" +
         triggerElement("Start", recipe.start, recipe.pre, recipe.watched) +
         triggerElement("Stop", recipe.stop, recipe.post, recipe.watched) + "</Trigger><File prefix='" +
         recipe.prefix + "' folder='" + recipe.folder + "' format='" + recipe.format +
         "'/></Recording></Parameters><Datas>" + datas + "</Datas></Tarnlog2000>";
}

/// The recorder as a program has it, on a simulated car, with time and timer in the test's hands: from a
/// vehicle description and a configuration to files and log.
class Scenario : public RecorderParts {
 public:
  /// `disk` takes the record files when they are not to be kept in memory.
  explicit Scenario(const Recipe& recipe, FileSystem* disk = nullptr)
      : RecorderParts(recipe.clock),
        acq(screen, {clock, timer, disk == nullptr ? files : *disk, recipe.locale, "tarnlog.xsl"}),
        origin_(recipe.clock) {
    files.files = recipe.inputs;
    files.files["/in/car.json"] = vehicleDescription(recipe);
    files.files["/in/configuration.xml"] = configuration(recipe);
    const auto open = [&](auto link) {
      return host::openVehicle(
          "/in/car.json", files, recipe.locale, linkClock, [this] { whileWaiting(); }, std::move(link));
    };
    vehicle = recipe.makeLink ? open(recipe.makeLink(linkClock)) : open(recipe.link);
    parameters = load("/in/configuration.xml");
    hear(acq);
    acq.setSession(&vehicle->session());
    if (recipe.started) start();
  }

  std::shared_ptr<oTarnParameters> load(const std::string& path) {
    return loadConfiguration(files, settings, path, BuildSessionDocument(vehicle->session())).parameters;
  }

  void start() {
    acq.StartReadingData(parameters);
    tickUntil(TarnAcq::kCommunicate);
  }
  void tickUntil(TarnAcq::State state) { RecorderParts::tickUntil(acq, state); }
  /// One tick at each of these moments.
  void run(const std::string& moments) {
    for (const std::string& word : words(moments)) tickAt(static_cast<Milliseconds>(std::stoul(word)));
  }
  void runEvery(Milliseconds step, Milliseconds first, Milliseconds last) {
    for (Milliseconds moment = first; moment <= last; moment += step) tickAt(moment);
  }
  /// The start/stop button.
  void press() { acq.ToggleRecording(); }
  /// Leaves the acquisition.
  void end() {
    acq.AskStopAcqNow();
    timer.fire();
  }

  /// The rows of a text file behind its header, with "|" for TAB.
  std::vector<std::string> rows(const std::string& path, std::size_t headerLines = 3) const {
    return rowsOf(files.readAll(path), headerLines);
  }
  /// The rows of the newest record file.
  std::vector<std::string> rows() const { return rows(acq.RecordPath()); }

  std::function<void()> whileWaiting = [] {};  ///< runs while the recorder waits for the car
  std::unique_ptr<host::OpenedVehicle> vehicle;
  std::shared_ptr<oTarnParameters> parameters;

  TarnAcq acq;

 private:
  void tickAt(Milliseconds moment) {
    linkClock.step(std::chrono::milliseconds(millisecondsBetween(clock.milliseconds(), origin_ + moment)));
    timer.fire();
  }

  Milliseconds origin_;
};

}  // namespace tarnlog::test
