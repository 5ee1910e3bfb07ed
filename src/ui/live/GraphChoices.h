#pragma once

#include <map>
#include <string>

#include "platform/settings/OptionalSettings.h"

namespace tarnlog {

/// How its user likes to see graphs. Kept in the settings, for all vehicles and configurations; what cannot
/// be kept there holds until the end of the program. Several windows may share the settings.
class GraphChoices {
 public:
  static constexpr int kLeastMegabytes = 16;
  static constexpr int kMostMegabytes = 4096;

  /// Without settings everything is as it is at first.
  explicit GraphChoices(SettingsStore* settings = nullptr);

  /// Times in the grid, instead of lines at ranks.
  bool times() const { return times_; }
  void setTimes(bool on);
  bool thickCurves() const { return thick_; }
  void setThickCurves(bool on);
  /// Memory for points that are kept for a look back, for all graphs together.
  int megabytes() const { return megabytes_; }
  void setMegabytes(int megabytes);
  /// Each curve of the graph of this name has a scale of its own.
  bool ownScales(const std::string& graph) const { return axes_.contains(graph); }
  void setOwnScales(const std::string& graph, bool own) { setAxis(graph, own ? axisOf(graph) : 0); }
  /// The plot whose scale is that of the axis then.
  int axisOf(const std::string& graph) const;
  /// 0: all curves have one scale.
  void setAxis(const std::string& graph, int plot);

 private:
  using Axes = std::map<std::string, int>;  ///< plots, by graphs whose curves have their own scales

  bool flag(const char* name, bool otherwise) const;
  Axes keptAxes() const;

  OptionalSettings settings_;
  bool times_ = true;
  bool thick_ = false;
  int megabytes_ = 64;
  Axes axes_;
  Axes chosen_;  ///< of these, what was chosen here; 0 for one scale
};

}  // namespace tarnlog
