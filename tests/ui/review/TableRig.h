#pragma once

#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/review/ReviewScene.h"

namespace tarnlog::test {

struct Signal {
  std::string name;
  std::string unit;
  std::function<double(double)> at;  ///< of the time; NaN: nothing
  std::vector<RecordLabel> labels = {};
};

inline std::vector<double> every(double step, int count) {
  std::vector<double> times;
  for (int i = 0; i < count; ++i) times.push_back(i * step);
  return times;
}

/// A group with these data at these times.
inline TableGroup groupOf(const std::vector<double>& times, const std::vector<Signal>& data) {
  TableGroup group;
  for (const double time : times) group.times.append(time);
  for (const Signal& signal : data) {
    TableColumn& column = group.columns.emplace_back();
    column.about.name = signal.name;
    column.about.unit = signal.unit;
    column.about.labels = signal.labels;
    column.onOff = true;
    for (const double time : times) {
      const double number = signal.at(time);
      column.numbers.append(number);
      column.onOff = column.onOff && (number == 0 || number == 1);
    }
  }
  return group;
}

inline LookedAtRecord recordOf(const std::string& name, std::vector<TableGroup> groups,
                               std::vector<TableMark> marks = {}) {
  RecordTable table;
  TableRecording& recording = table.recordings.emplace_back();
  recording.groups = std::move(groups);
  recording.marks = std::move(marks);
  recording.head.local = LocalDateTime{2026, 11, 16, 19, 5, 8};
  table.complete = true;
  return {name, std::make_shared<const RecordTable>(std::move(table)), 0, 0};
}

/// 100 s of a drive, ten rows a second.
inline LookedAtRecord drive(const std::string& name, double faster = 1) {
  return recordOf(
      name,
      {groupOf(
          every(0.1, 1001),
          {{"Speed", "km/h", [=](double t) { return faster * t; }},
           {"Wheel speed", "km/h", [=](double t) { return faster * t + 5; }},
           {"Coolant", "°C", [](double t) { return 20 + t / 2; }},
           {"Brake", "", [](double t) { return t >= 50 && t < 60 ? 1.0 : 0.0; }},
           {"Gear", "", [](double t) { return std::floor(t / 40); }, {{0, 0, "Neutral"}, {1, 1, "First"}}}})},
      {{RecordNote::Kind::Start, 0, 0, 0, ""},
       {RecordNote::Kind::Event, 30, 0, 1, "event1.txt"},
       {RecordNote::Kind::Stop, 100, 0, 0, ""}});
}

/// "Speed Wheel speed | Coolant | states Brake Gear"
inline std::string graphsText(const ReviewScene& scene) {
  std::string text;
  for (const ReviewGraph& graph : scene.graphs()) {
    if (!text.empty()) text += "| ";
    if (graph.kind != GraphKind::Time) text += graph.kind == GraphKind::XY ? "xy " : "states ";
    for (const ReviewCurve& curve : graph.curves)
      text += scene.column(curve.place).about.name +
              (curve.place.record == 0 ? " " : "(" + std::to_string(curve.place.record + 1) + ") ");
  }
  return text;
}

}  // namespace tarnlog::test
