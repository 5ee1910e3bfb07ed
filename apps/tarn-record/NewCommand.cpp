#include "apps/tarn-record/NewCommand.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>

#include "apps/common/BadInput.h"
#include "apps/common/NearestName.h"
#include "apps/tarn-record/CatalogueTable.h"
#include "config/CatalogueMatch.h"
#include "platform/ferrox3/Value.h"
#include "platform/text/Numbers.h"

namespace tarnlog::record {

namespace {

constexpr std::array<std::int32_t, 6> kColours = {0xB47700, 0x2828D6, 0x2CA02C, 0x0E7FFF, 0xBD6794, 0x4B568C};

std::string nearNames(const std::vector<CatalogueRow>& rows, const std::string& path) {
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const CatalogueRow& row : rows) {
    const bool contained = containsText(row.path(), path) || containsText(path, row.data);
    const std::size_t far = contained ? 0 : distance(path, row.path());
    if (contained || far <= path.size() / 5) near.emplace_back(far, row.path());
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::string text;
  for (std::size_t i = 0; i < std::min<std::size_t>(near.size(), 5); ++i) text += "\n  " + near[i].second;
  return text.empty() ? text : "; near are:" + text;
}

void giveDisplay(oTarnScope& scope, const CatalogueRow& row, std::int32_t number) {
  const auto colour = kColours[static_cast<std::size_t>(number) % kColours.size()];
  scope.SetGraph("", true, leadingNumber(row.minimum), leadingNumber(row.maximum), oTarnGraph::kDefaultPoints,
                 colour);
  if (scope.ScopeType() == oTarnScope::kNone) scope.SetNumeric("");
}

void addRow(oTarnParameters& parameters, const SessionDocument& session, const CatalogueRow& row) {
  auto scope = std::make_unique<oTarnScope>();
  scope->EcuName = row.ecu;
  scope->RequestName = row.request;
  scope->DataName = row.data;
  takeFromCatalogue(*scope, session);
  const XmlElement data = FindSessionData(session, row.ecu, row.request, row.data, oTarnScope::kNoAddress);
  scope->FunctionName = data.parent().parent().attributeOrEmpty("function");
  giveDisplay(*scope, row, parameters.Count());
  if (parameters.Item(scope->DataKey) != nullptr) throw BadInput("--data " + row.path() + " is named twice");
  parameters.AddScope(std::move(scope));
}

}  // namespace

void addNamedData(oTarnParameters& parameters, const SessionDocument& session,
                  const std::vector<std::string>& paths) {
  const std::vector<CatalogueRow> rows = catalogueRows(session);
  for (const std::string& path : paths) {
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const CatalogueRow& each) { return each.path() == path; });
    if (row == rows.end())
      throw BadInput("--data " + path + ": expected ECU/REQUEST/DATA of this vehicle" +
                     nearNames(rows, path));
    addRow(parameters, session, *row);
  }
  parameters.renumber();
}

}  // namespace tarnlog::record
