#include "ui/live/GraphChoices.h"

#include <algorithm>
#include <sstream>

#include "platform/text/Cell.h"
#include "platform/text/Numbers.h"

namespace tarnlog {
namespace {

constexpr char kTimes[] = "GraphTimes";
constexpr char kThick[] = "GraphThickCurves";
constexpr char kMemory[] = "GraphMegabytes";
constexpr char kOwnScales[] = "GraphOwnScales";
constexpr std::size_t kMostNames = 500;  ///< that are read

}  // namespace

GraphChoices::GraphChoices(SettingsStore* settings) : settings_(settings) {
  times_ = flag(kTimes, times_);
  thick_ = flag(kThick, thick_);
  if (const auto memory = wholeInteger(settings_.read(kMemory).value_or("")))
    megabytes_ = std::clamp(*memory, kLeastMegabytes, kMostMegabytes);
  std::istringstream names(settings_.read(kOwnScales).value_or(""));
  for (std::string name; std::getline(names, name, '\t') && ownScales_.size() < kMostNames;)
    ownScales_.insert(name);
}

bool GraphChoices::flag(const char* name, bool otherwise) const {
  const auto value = settings_.read(name);
  return value == "1" ? true : value == "0" ? false : otherwise;
}

void GraphChoices::setTimes(bool on) {
  times_ = on;
  settings_.write(kTimes, on ? "1" : "0");
}

void GraphChoices::setThickCurves(bool on) {
  thick_ = on;
  settings_.write(kThick, on ? "1" : "0");
}

void GraphChoices::setMegabytes(int megabytes) {
  megabytes_ = std::clamp(megabytes, kLeastMegabytes, kMostMegabytes);
  settings_.write(kMemory, std::to_string(megabytes_));
}

void GraphChoices::setOwnScales(const std::string& graph, bool own) {
  const std::string name = cleanCell(graph);
  if (own)
    ownScales_.insert(name);
  else
    ownScales_.erase(name);
  std::string names;
  for (const std::string& each : ownScales_) names += (names.empty() ? "" : "\t") + each;
  settings_.write(kOwnScales, names);
}

}  // namespace tarnlog
