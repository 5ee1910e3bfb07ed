#include "ui/live/GraphChoices.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "platform/base/TarnError.h"
#include "platform/text/Cell.h"
#include "platform/text/Numbers.h"

namespace tarnlog {
namespace {

constexpr char kTimes[] = "GraphTimes";
constexpr char kThick[] = "GraphThickCurves";
constexpr char kMemory[] = "GraphMegabytes";
constexpr char kOwnScales[] = "GraphOwnScales";
constexpr std::size_t kMostNames = 500;

std::optional<std::string> read(const SettingsStore* settings, const char* name) {
  std::optional<std::string> value;
  if (settings != nullptr) skipOnFailure([&] { value = settings->read(name); });
  return value;
}

}  // namespace

GraphChoices::GraphChoices(SettingsStore* settings) : settings_(settings) {
  times_ = flag(kTimes, times_);
  thick_ = flag(kThick, thick_);
  if (const auto memory = wholeInteger(read(settings_, kMemory).value_or("")))
    megabytes_ = std::clamp(*memory, kLeastMegabytes, kMostMegabytes);
  std::istringstream names(read(settings_, kOwnScales).value_or(""));
  for (std::string name; std::getline(names, name, '\t') && ownScales_.size() < kMostNames;)
    ownScales_.insert(name);
}

bool GraphChoices::flag(const char* name, bool otherwise) const {
  const auto value = read(settings_, name);
  return value == "1" ? true : value == "0" ? false : otherwise;
}

void GraphChoices::keep(const char* name, const std::string& value) {
  if (settings_ != nullptr) skipOnFailure([&] { settings_->write(name, value); });
}

void GraphChoices::setTimes(bool on) {
  times_ = on;
  keep(kTimes, on ? "1" : "0");
}

void GraphChoices::setThickCurves(bool on) {
  thick_ = on;
  keep(kThick, on ? "1" : "0");
}

void GraphChoices::setMegabytes(int megabytes) {
  megabytes_ = std::clamp(megabytes, kLeastMegabytes, kMostMegabytes);
  keep(kMemory, std::to_string(megabytes_));
}

void GraphChoices::setOwnScales(const std::string& graph, bool own) {
  const std::string name = cleanCell(graph);
  if (own && ownScales_.size() < kMostNames)
    ownScales_.insert(name);
  else
    ownScales_.erase(name);
  std::string names;
  for (const std::string& each : ownScales_) names += (names.empty() ? "" : "\t") + each;
  keep(kOwnScales, names);
}

}  // namespace tarnlog
