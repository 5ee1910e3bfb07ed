#include "samples/MdfLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnlog {

namespace {

using Kind = MdfColumn::Kind;

std::size_t cellBytes(int bits) {
  std::size_t bytes = 1;
  while (bytes * 8 < static_cast<std::size_t>(bits)) bytes *= 2;
  return bytes;
}

/// Where scaling changes the number, the labels belong to the scaled one, and a file's labels do not.
bool scales(const ferrox3::Scaling& scaling) { return scaling.factor != 1 || scaling.offset != 0; }

void addLabels(const ferrox3::Enumeration& labels, MdfColumn& column) {
  for (std::int32_t i = 1; i <= labels.Count(); ++i) {
    const std::string label = labels.label(i);
    column.labels.emplace_back(labels.value(label), label);
  }
}

void addNumberKind(const ferrox3::DataItem& item, MdfColumn& column) {
  const ferrox3::Enumeration* const labels = item.enumeration();
  column.scaling = item.scaling();
  if (labels != nullptr && column.scaling && scales(*column.scaling)) column.scaling.reset();
  if (column.scaling) {
    column.kind = column.scaling->isSigned ? Kind::Signed : Kind::Unsigned;
    column.bytes = cellBytes(column.scaling->bits);
  } else if (labels != nullptr && item.typeCode() == ferrox3::kInteger) {
    column.kind = Kind::Signed;
    column.bytes = 4;
  }
  if (labels != nullptr) addLabels(*labels, column);
}

void addRange(const ferrox3::DataItem& item, MdfColumn& column) {
  const ferrox3::Scaling scaling = column.scaling.value_or(ferrox3::Scaling{});
  const double one = (item.minimum() - scaling.offset) / scaling.factor;
  const double other = (item.maximum() - scaling.offset) / scaling.factor;
  if (!std::isfinite(one) || !std::isfinite(other) || one == other) return;
  column.range = std::minmax(one, other);
}

MdfColumn itemColumn(const ferrox3::DataItem& item) {
  MdfColumn column{.name = item.name(), .unit = item.unit()};
  if (item.typeCode() == ferrox3::kString) {
    column.kind = Kind::Text;
  } else if (item.typeCode() == ferrox3::kByteArray) {
    column.kind = Kind::Bytes;
  } else {
    addNumberKind(item, column);
    addRange(item, column);
  }
  return column;
}

MdfGroup requestGroup(const SampleRequest& request) {
  const ferrox3::Ecu& ecu = request.request->ecu();
  MdfGroup group{.name = ecu.name() + "/" + request.request->name(),
                 .ecu = ecu.name(),
                 .ecuFunction = ecu.functionName()};
  group.columns = mdfRequestColumns();
  std::uint32_t bit = 0;
  for (const ferrox3::DataItem* const item : request.items) {
    group.columns.push_back(itemColumn(*item));
    group.columns.back().invalidationBit = bit++;
  }
  group.invalidationBytes = (bit + 7) / 8;
  return group;
}

MdfGroup marksGroup() {
  const auto value = [](SampleMark::Kind kind) { return static_cast<double>(kind); };
  MdfColumn kind{.name = "kind", .kind = Kind::Unsigned, .bytes = 1};
  kind.labels = {{value(SampleMark::Kind::Start), "Start"},
                 {value(SampleMark::Kind::Stop), "Stop"},
                 {value(SampleMark::Kind::Event), "Event"}};
  return {.name = mdfnames::kMarks,
          .columns = {mdfTimeColumn(),
                      kind,
                      {.name = "number", .kind = Kind::Unsigned, .bytes = 4},
                      {.name = "file", .kind = Kind::Text}}};
}

void addOwnGroups(MdfLayout& layout) {
  layout.groups.push_back(marksGroup());
  layout.groups.push_back({.name = mdfnames::kGaps, .columns = {mdfTimeColumn(), mdfTimeColumn("end")}});
  layout.groups.push_back({.name = mdfnames::kFailures,
                           .columns = {mdfTimeColumn(),
                                       mdfTimeColumn("request time"),
                                       {.name = "request", .kind = Kind::Text},
                                       {.name = "reason", .kind = Kind::Text}}});
  layout.groups.push_back(
      {.name = mdfnames::kClockSteps, .columns = {mdfTimeColumn(), {.name = "step", .unit = "s"}}});
}

void placeCells(MdfGroup& group, MdfLayout& layout, std::uint64_t& id) {
  group.id = ++id;
  for (std::size_t i = 0; i < group.columns.size(); ++i) {
    MdfColumn& column = group.columns[i];
    column.at = group.dataBytes;
    group.dataBytes += column.bytes;
    if (column.kind == Kind::Time) group.times.push_back(i);
    if (!column.variable()) continue;
    group.variables.push_back(i);
    column.valueId = ++id;
    column.valueGroup = layout.valueGroups++;
  }
}

void placeAll(MdfLayout& layout) {
  std::uint64_t id = 0;
  for (MdfGroup& group : layout.groups) placeCells(group, layout, id);
  if (id > 0xFF) layout.idBytes = id > 0xFFFF ? 4 : 2;
}

}  // namespace

MdfColumn mdfTimeColumn(const char* name) { return {.name = name, .kind = Kind::Time, .unit = "s"}; }

std::vector<MdfColumn> mdfRequestColumns() {
  return {mdfTimeColumn(), mdfTimeColumn("request time"), {.name = "sequence", .kind = Kind::Unsigned}};
}

MdfLayout mdfLayout(const SampleBeginning& beginning) {
  std::vector<MdfGroup> groups;
  for (const SampleRequest& request : beginning.requests) groups.push_back(requestGroup(request));
  return mdfLayout(std::move(groups));
}

MdfLayout mdfLayout(std::vector<MdfGroup> groups) {
  MdfLayout layout{.groups = std::move(groups)};
  layout.requests = layout.groups.size();
  addOwnGroups(layout);
  placeAll(layout);
  return layout;
}

}  // namespace tarnlog
