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
constexpr char kAxes[] = "GraphAxes";    ///< name, plot, name, plot... with tabs between them
constexpr std::size_t kMostNames = 500;  ///< that are read

}  // namespace

GraphChoices::GraphChoices(SettingsStore* settings) : settings_(settings) {
  times_ = flag(kTimes, times_);
  thick_ = flag(kThick, thick_);
  if (const auto memory = wholeInteger(settings_.read(kMemory).value_or("")))
    megabytes_ = std::clamp(*memory, kLeastMegabytes, kMostMegabytes);
  axes_ = keptAxes();
}

GraphChoices::Axes GraphChoices::keptAxes() const {
  Axes axes;
  std::istringstream cells(settings_.read(kAxes).value_or(""));
  for (std::string name, plot;
       axes.size() < kMostNames && std::getline(cells, name, '\t') && std::getline(cells, plot, '\t');)
    axes[name] = std::max(wholeInteger(plot).value_or(1), 1);
  return axes;
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

int GraphChoices::axisOf(const std::string& graph) const {
  const auto found = axes_.find(graph);
  return found == axes_.end() ? 1 : found->second;
}

/// Another window may have added to the list since it was read.
void GraphChoices::setAxis(const std::string& graph, int plot) {
  chosen_[cleanCell(graph)] = plot;
  axes_ = keptAxes();
  for (const auto& [name, axis] : chosen_) {
    if (axis == 0)
      axes_.erase(name);
    else
      axes_[name] = axis;
  }
  std::string cells;
  for (const auto& [name, axis] : axes_)
    cells += (cells.empty() ? "" : "\t") + name + '\t' + std::to_string(axis);
  settings_.write(kAxes, cells);
}

}  // namespace tarnlog
