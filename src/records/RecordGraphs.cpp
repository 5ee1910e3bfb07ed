#include "records/RecordGraphs.h"

#include <algorithm>
#include <map>
#include <utility>

#include "config/oTarnScope.h"
#include "platform/xml/XmlDocument.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

std::string configurationOf(const RecordHead& head) {
  if (!head.configuration.empty()) return head.configuration;
  for (const auto& [name, text] : head.facts)
    if (name == kConfigurationFact) return text;
  return {};
}

std::vector<oTarnScope> itemsOf(const std::string& configuration) {
  std::vector<oTarnScope> items;
  XmlDocument document;
  if (configuration.empty() || document.parse(configuration)) return items;
  for (const XmlElement& element : document.selectNodes("*/Datas/Data")) items.emplace_back().SetXml(element);
  return items;
}

/// Where the data of the configuration stand in the record.
class Places {
 public:
  Places(const TableRecording& recording, std::size_t position) {
    for (std::size_t g = 0; g < recording.groups.size(); ++g)
      for (std::size_t c = 0; c < recording.groups[g].columns.size(); ++c)
        places_[fullName(recording.groups[g].columns[c].about)].push_back({position, g, c});
  }

  /// Each one once: of two items of one name, the second one is the second column of that name.
  std::optional<ColumnPlace> take(const oTarnScope& item) {
    RecordColumn column;
    column.ecu = item.EcuName;
    column.request = item.RequestName;
    column.name = item.DataName;
    const auto found = places_.find(fullName(column));
    if (found == places_.end() || found->second.empty()) return std::nullopt;
    const ColumnPlace place = found->second.front();
    found->second.erase(found->second.begin());
    return place;
  }

 private:
  std::map<std::string, std::vector<ColumnPlace>> places_;
};

/// The configuration has them the other way round.
std::uint32_t fromBlueGreenRed(std::int32_t colour) {
  const auto bits = static_cast<std::uint32_t>(colour);
  return (bits & 0xFFU) << 16U | (bits & 0xFF00U) | (bits >> 16U & 0xFFU);
}

class GraphList {
 public:
  explicit GraphList(std::vector<RecordGraph>& graphs) : graphs_(graphs) {}

  void add(const oTarnScope& item, const ColumnPlace& place) {
    switch (item.ScopeType()) {
      case DisplayKind::kDigital:
        return addGraph(item, RecordGraph::Kind::Digits, std::get<oTarnNumeric>(item.display()).Caption,
                        {place, 0});
      case DisplayKind::kBarGraph:
        return addColoured(item, RecordGraph::Kind::Bar, std::get<oTarnSlide>(item.display()), place);
      case DisplayKind::kGraph:
        return addColoured(item, RecordGraph::Kind::Time, std::get<oTarnGraph>(item.display()), place);
      default:
        break;
    }
  }

  /// Once all graphs are there. A curve without a graph gets one of its own.
  void addToGraph(const oTarnScope& item, const ColumnPlace& place) {
    const std::int32_t* const reference = item.graphReference();
    if (reference == nullptr) return;
    const auto found = byIndex_.find(*reference);
    const auto* const curve = std::get_if<oTarnGraphIndex>(&item.display());
    if (curve == nullptr && found != byIndex_.end()) {
      graphs_[found->second].kind = RecordGraph::Kind::XY;
      graphs_[found->second].x = place;
    } else if (curve != nullptr && found != byIndex_.end()) {
      graphs_[found->second].columns.push_back({place, fromBlueGreenRed(curve->Color)});
    } else if (curve != nullptr) {
      addColoured(item, RecordGraph::Kind::Time, *curve, place);
    }
  }

 private:
  template <class Settings>
  void addColoured(const oTarnScope& item, RecordGraph::Kind kind, const Settings& settings,
                   const ColumnPlace& place) {
    addGraph(item, kind, settings.Caption, {place, fromBlueGreenRed(settings.Color)});
  }

  void addGraph(const oTarnScope& item, RecordGraph::Kind kind, const std::string& caption,
                const GraphedColumn& column) {
    if (item.ScopeType() == DisplayKind::kGraph) byIndex_.try_emplace(item.index, graphs_.size());
    graphs_.push_back({kind, caption.empty() ? item.DataName : caption, {column}, {}});
  }

  std::vector<RecordGraph>& graphs_;
  std::map<std::int32_t, std::size_t> byIndex_;  ///< graphs that others refer to
};

}  // namespace

std::vector<RecordGraph> configuredGraphs(const RecordTable& table, std::size_t recording) {
  const TableRecording& from = table.recordings[recording];
  Places places(from, recording);
  std::vector<std::pair<oTarnScope, ColumnPlace>> items;
  for (oTarnScope& item : itemsOf(configurationOf(from.head)))
    if (const auto place = places.take(item)) items.emplace_back(std::move(item), *place);
  std::vector<RecordGraph> graphs;
  GraphList list(graphs);
  for (const auto& [item, place] : items) list.add(item, place);
  for (const auto& [item, place] : items) list.addToGraph(item, place);
  return graphs;
}

}  // namespace tarnlog
