#include "apps/tarn-record/NewCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

#include "apps/common/BadInput.h"
#include "apps/common/NearestName.h"
#include "apps/tarn-record/CatalogueTable.h"
#include "apps/tarn-record/NamePattern.h"
#include "apps/tarn-record/TriggerText.h"
#include "config/AddDatum.h"
#include "platform/ferrox3/Value.h"
#include "platform/text/Numbers.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

constexpr std::array<std::int32_t, 6> kColours = {0xB47700, 0x2828D6, 0x2CA02C, 0x0E7FFF, 0xBD6794, 0x4B568C};

/// More graphs than this are no picture any more; the window lists all values anyway.
constexpr std::int32_t kMostDisplayed = 32;

/// Adds data of one vehicle to one configuration.
class DataAdding {
 public:
  DataAdding(oTarnParameters& parameters, const SessionDocument& session)
      : parameters_(parameters), session_(session), rows_(catalogueRows(session)) {}

  void addNamed(const std::string& path) { add(named(path, "--data")); }

  void addMatching(const std::string& pattern) {
    const NamePattern wanted(pattern);
    bool any = false;
    for (const CatalogueRow& row : rows_) {
      if (!wanted.matches(row.data) && !wanted.matches(row.path())) continue;
      add(row);
      any = true;
    }
    if (!any)
      throw BadInput(Told::tr("--match {}: no data of this vehicle are called so{}", pattern,
                              nearNamesText(near(wanted.core()))));
  }

  void addAll() {
    for (const CatalogueRow& row : rows_) add(row);
  }

  const CatalogueRow& named(const std::string& path, const char* option) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const CatalogueRow& each) { return each.path() == path; });
    if (row != rows_.end()) return *row;
    throw BadInput(Told::tr("{} {}: expected ECU/REQUEST/DATA of this vehicle{}", option, path,
                            nearNamesText(near(path))));
  }

  /// The item of this row, which is added unless it is there.
  const oTarnScope& add(const CatalogueRow& row) {
    const std::int32_t before = parameters_.Count();
    oTarnScope& scope = addDatum(parameters_, session_, row.ecu, row.request, row.data);
    if (parameters_.Count() > before && before < kMostDisplayed) giveDisplay(scope, row, before);
    return scope;
  }

 private:
  std::vector<std::string> near(const std::string& given) const {
    std::vector<std::string> paths;
    paths.reserve(rows_.size());
    for (const CatalogueRow& row : rows_) paths.push_back(row.path());
    return nearNames(paths, given);
  }

  static void giveDisplay(oTarnScope& scope, const CatalogueRow& row, std::int32_t number) {
    const auto colour = kColours[static_cast<std::size_t>(number) % kColours.size()];
    scope.SetGraph("", true, leadingNumber(row.minimum), leadingNumber(row.maximum),
                   oTarnGraph::kDefaultPoints, colour);
    if (scope.ScopeType() == oTarnScope::kNone) scope.SetNumeric("");
  }

  oTarnParameters& parameters_;
  const SessionDocument& session_;
  std::vector<CatalogueRow> rows_;
};

/// Sets one of both triggers; the datum that it watches is added when it is not recorded yet.
void setTrigger(oTarnTrigger& trigger, const char* option, const std::string& text, DataAdding& data,
                oTarnParameters& parameters, std::vector<std::string>& added) {
  const TriggerText wanted = parseTrigger(option, text, trigger.modeTrigger == 1);
  trigger.typeTrigger = wanted.type;
  trigger.timeSeconde = wanted.seconds.value_or(trigger.timeSeconde);
  if (wanted.type != oTarnTrigger::kChannel) return;
  const CatalogueRow& row = data.named(wanted.path, option);
  if (row.type == "text" || row.type == "bytes")
    throw BadInput(Told::tr("{} {}: expected a number, and {} has none", option, text, row.path()));
  const std::int32_t before = parameters.Count();
  const oTarnScope& watched = data.add(row);
  if (parameters.Count() > before) added.push_back(row.path());
  parameters.renumber();
  trigger.DataIndex = watched.index;
  trigger.edge = wanted.edge;
  trigger.level = wanted.level;
}

}  // namespace

void addChosenData(oTarnParameters& parameters, const SessionDocument& session, const DataChoice& choice) {
  if (choice.data.empty() && choice.match.empty() && !choice.all)
    throw BadInput(Told::tr("expected --data, --match or --all, which say what to record"));
  DataAdding data(parameters, session);
  for (const std::string& path : choice.data) data.addNamed(path);
  for (const std::string& pattern : choice.match) data.addMatching(pattern);
  if (choice.all) data.addAll();
  parameters.renumber();
}

std::vector<std::string> setTriggers(oTarnParameters& parameters, const SessionDocument& session,
                                     const TriggerChoice& choice) {
  DataAdding data(parameters, session);
  std::vector<std::string> added;
  oTarnTrigger& start = *parameters.startTrigger;
  oTarnTrigger& stop = *parameters.stopTrigger;
  if (choice.start) setTrigger(start, "--start", *choice.start, data, parameters, added);
  if (choice.stop) setTrigger(stop, "--stop", *choice.stop, data, parameters, added);
  if (choice.before) start.prepost = -*choice.before;
  if (choice.after) stop.prepost = *choice.after;
  return added;
}

}  // namespace tarnlog::record
