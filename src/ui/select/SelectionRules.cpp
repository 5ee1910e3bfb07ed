#include "ui/select/SelectionRules.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "catalogue/FonctionsSelection.h"
#include "ui/select/NewScope.h"

namespace tarnlog {

namespace {

/// Where a data node stands: the rows of the ECU, of what is between, and its own.
using Place = std::array<std::size_t, 3>;

Place placeOf(const CatalogueTree& tree, CatalogueNode data) {
  const CatalogueNode parent = tree.parent(data);
  const CatalogueNode above = tree.parent(parent);
  if (above == CatalogueTree::kRoot) return {tree.row(parent), tree.row(data), 0};
  return {tree.row(above), tree.row(parent), tree.row(data)};
}

bool isData(const CatalogueTree::Content& content) {
  return content.image == CatalogueImage::data || content.image == CatalogueImage::reference;
}

}  // namespace

void SelectionRules::setXmlSession(std::shared_ptr<const SessionDocument> document) {
  forgetRows();
  removals_.clear();
  tree_.clear();
  document_ = std::move(document);
  search_ = document_ == nullptr ? CatalogueSearch() : CatalogueSearch(*document_);
  tree_.mode = 'R';
  search();
  fillTree();
}

void SelectionRules::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  removals_.clear();
  parameters_ = std::move(parameters);
  DisplayDataList();
}

std::int32_t SelectionRules::DisplayDataList(const oTarnScope* selectScope) {
  if (buildRows(selectScope)) {
    search();
    fillTree();
  }
  return static_cast<std::int32_t>(rows_.size());
}

/// True when other data are chosen than before.
bool SelectionRules::buildRows(const oTarnScope* selectScope) {
  const CatalogueKeys before = chosen_;
  const std::size_t rowsBefore = rows_.size();
  forgetRows();
  bool otherData = false;
  if (ready()) {
    for (oTarnScope& scope : *parameters_) {
      const XmlElement element = elementOf(scope);
      if (!element) continue;
      renewKey(scope, element);
      otherData |= !before.has(keyNumber(scope.DataKey));
      AddDataRow(scope, element);
      if (&scope == selectScope) selectedRow_ = rows_.size() - 1;
    }
  }
  if (selectScope == nullptr && !rows_.empty()) selectedRow_ = rows_.size() - 1;
  return otherData || rows_.size() != rowsBefore;
}

/// Of two ECUs with one address the document finds the first, for the data of either: the key stays with the
/// item that has it already.
void SelectionRules::renewKey(oTarnScope& scope, XmlElement element) const {
  const std::string_view key = element.attributeOrEmpty("c");
  const oTarnScope* const holder = parameters_->Item(key);
  if (holder == nullptr || holder == &scope || elementOf(*holder) != element) scope.DataKey = key;
}

void SelectionRules::Clear() {
  forgetRows();
  search();
  fillTree();
}

void SelectionRules::setShape(char key) {
  if (key == tree_.mode) return;
  tree_.mode = key;
  fillTree();
}

void SelectionRules::expand(CatalogueNode node) { ExpandCatalogueNode(tree_, node, chosen_, kFullDepth); }

void SelectionRules::setFilter(std::string_view text) {
  filter_ = text;
  search();
  fillTree();
}

/// Finds again what the filter lets through.
void SelectionRules::search() {
  const bool blank = filter_.find_first_not_of(" \t") == std::string::npos;
  if (!blank) search_.find(filter_, chosen_, found_);
  if (blank) found_.ecus.clear();
  tree_.shown = blank ? nullptr : &found_.elements;
}

void SelectionRules::fillTree() {
  if (document_ != nullptr) FillCatalogueTree(*document_, tree_, chosen_, kLazyDepth);
}

std::vector<CatalogueNode> SelectionRules::dataNodes(const std::vector<CatalogueNode>& nodes) const {
  std::vector<std::pair<Place, CatalogueNode>> placed;
  const auto addNode = [&](CatalogueNode node) { placed.emplace_back(placeOf(tree_, node), node); };
  for (const CatalogueNode node : nodes) {
    const auto& content = tree_.content(node);
    if (isData(content)) addNode(node);
    if (content.image == CatalogueImage::request || content.image == CatalogueImage::device)
      for (const CatalogueNode child : tree_.children(node)) addNode(child);
  }
  std::sort(placed.begin(), placed.end());
  placed.erase(std::unique(placed.begin(), placed.end()), placed.end());
  std::vector<CatalogueNode> found;
  found.reserve(placed.size());
  for (const auto& [place, node] : placed) found.push_back(node);
  return found;
}

bool SelectionRules::addsOnDoubleClick(CatalogueNode node) const {
  const auto& content = tree_.content(node);
  return content.image == CatalogueImage::request || isData(content);
}

bool SelectionRules::canAdd(const std::vector<CatalogueNode>& nodes) const {
  if (!ready()) return false;
  const auto isNew = [this](CatalogueNode node) {
    const auto& content = tree_.content(node);
    return isData(content) && parameters_->Item(content.key) == nullptr;
  };
  return std::any_of(nodes.begin(), nodes.end(), [&](CatalogueNode node) {
    const auto& content = tree_.content(node);
    if (content.image != CatalogueImage::request && content.image != CatalogueImage::device)
      return isNew(node);
    const auto& children = tree_.children(node);
    return std::any_of(children.begin(), children.end(), isNew);
  });
}

bool SelectionRules::addData(const std::vector<CatalogueNode>& nodes, std::size_t before) {
  if (!ready()) return false;
  std::vector<oTarnScope*> added;
  std::vector<CatalogueNode> moved;
  const std::size_t firstNew = rows_.size();
  for (const CatalogueNode node : dataNodes(nodes)) {
    if (oTarnScope* const scope = MoveNodeToRecord(node)) {
      added.push_back(scope);
      moved.push_back(node);
    }
  }
  if (added.empty()) return false;
  tree_.remove(std::move(moved));
  selectedRow_ = rows_.size() - 1;
  if (before < firstNew) {
    parameters_->moveScopes(added, rows_[before].scope);
    const auto at = [this](std::size_t row) { return rows_.begin() + static_cast<std::ptrdiff_t>(row); };
    std::rotate(at(before), at(firstNew), rows_.end());
    selectedRow_ = before + added.size() - 1;
    numberRows(0);
  }
  return true;
}

/// Null when the configuration has the data already. The node stays in the tree, for the caller to remove.
oTarnScope* SelectionRules::MoveNodeToRecord(CatalogueNode node) {
  const auto& content = tree_.content(node);
  if (parameters_->Item(content.key) != nullptr) return nullptr;
  oTarnScope& scope = parameters_->AddScope(newScope(content.tag));
  AddDataRow(scope, content.tag);
  return &scope;
}

/// Appends the row and numbers its item; the rows before it have their numbers.
void SelectionRules::AddDataRow(oTarnScope& scope, XmlElement element) {
  rows_.push_back({&scope, element, scope.DataName, scope.RequestName, scope.EcuName, scope.DeviceName});
  numberRows(rows_.size() - 1);
  chosen_.add(keyNumber(scope.DataKey));
}

SelectionRules::Removal SelectionRules::removeData(std::vector<std::size_t> rows, std::size_t focusedRow) {
  Removal removal;
  if (!ready() || rows.empty()) return removal;
  std::sort(rows.begin(), rows.end(), std::greater<>());
  if (rows.front() >= rows_.size()) return removal;
  if (focusedRow == kNoRow) focusedRow = rows.back();
  parameters_->renumber();
  RemovedItems removed(*parameters_);
  std::vector<std::int32_t> positions;
  std::vector<bool> leaves(rows_.size());
  for (const std::size_t row : rows) {
    leaves[row] = giveBack(rows_[row]);
    if (leaves[row])
      positions.push_back(rows_[row].scope->index);
    else
      removal.notFound.push_back(rows_[row].data);
  }
  forgetRowsThat(leaves);
  removed.remove(*parameters_, positions);
  selectedRow_ = rows_.empty() ? kNoRow : std::min(focusedRow, rows_.size() - 1);
  removal.changed = !removed.empty();
  if (removal.changed) removals_.push_back(std::move(removed));
  return removal;
}

/// To the tree. False, and nothing done, when the document does not have the data.
bool SelectionRules::giveBack(const SelectedRow& row) {
  const XmlElement element = elementOf(*row.scope);
  if (!element) return false;
  chosen_.remove(keyNumber(row.scope->DataKey));
  if (filtering() && CatalogueSearch::matches(element, filter_))
    for (XmlElement above = element; above.attribute("c"); above = above.parent())
      found_.elements.add(keyNumber(above));
  GiveDataNodeBack(tree_, element);
  return true;
}

void SelectionRules::forgetRowsThat(const std::vector<bool>& leave) {
  std::vector<SelectedRow> staying;
  staying.reserve(rows_.size());
  for (std::size_t row = 0; row < rows_.size(); ++row)
    if (!leave[row]) staying.push_back(std::move(rows_[row]));
  rows_ = std::move(staying);
}

bool SelectionRules::undoRemoval() {
  if (!ready() || removals_.empty()) return false;
  parameters_->renumber();
  const auto back = removals_.back().putBack(*parameters_);
  removals_.pop_back();
  std::vector<CatalogueNode> nodes;
  for (const oTarnScope* const scope : back) {
    const CatalogueNode node = tree_.find(scope->DataKey);
    if (node != CatalogueTree::kNone) nodes.push_back(node);
  }
  tree_.remove(std::move(nodes));
  buildRows(back.empty() ? nullptr : back.back());
  return !back.empty();
}

bool SelectionRules::moveUp(std::size_t row) {
  return row != kNoRow && row > 0 && changePlaces(row, row - 1);
}

bool SelectionRules::moveDown(std::size_t row) { return row != kNoRow && changePlaces(row, row + 1); }

bool SelectionRules::changePlaces(std::size_t row, std::size_t neighbour) {
  if (!ready() || row >= rows_.size() || neighbour >= rows_.size()) return false;
  oTarnScope& moved = *rows_[row].scope;
  parameters_->renumber();
  parameters_->changeScopeOrder(moved, *rows_[neighbour].scope);
  DisplayDataList(&moved);
  return true;
}

bool SelectionRules::moveRows(std::vector<std::size_t> rows, std::size_t before) {
  if (!ready() || rows.empty()) return false;
  std::sort(rows.begin(), rows.end());
  if (rows.back() >= rows_.size()) return false;
  const bool together = rows.back() - rows.front() + 1 == rows.size();
  const std::size_t end = std::min(before, rows_.size());
  if (together && end >= rows.front() && end <= rows.back() + 1) return false;
  while (before < rows_.size() && std::binary_search(rows.begin(), rows.end(), before)) ++before;
  std::vector<oTarnScope*> moved;
  moved.reserve(rows.size());
  for (const std::size_t row : rows) moved.push_back(rows_[row].scope);
  parameters_->moveScopes(moved, before < rows_.size() ? rows_[before].scope : nullptr);
  DisplayDataList(moved.front());
  return true;
}

XmlElement SelectionRules::elementOf(const oTarnScope& scope) const {
  return FindSessionData(*document_, scope.EcuName, scope.RequestName, scope.DataName, scope.FunctionAddress);
}

void SelectionRules::forgetRows() {
  rows_.clear();
  chosen_.clear();
  selectedRow_ = kNoRow;
}

/// From this row on, items have the number of their row. Before they are removed or moved, the configuration
/// numbers all anew: items without a row have a position in it, too.
void SelectionRules::numberRows(std::size_t first) {
  for (std::size_t row = first; row < rows_.size(); ++row)
    rows_[row].scope->index = static_cast<std::int32_t>(row) + 1;
}

}  // namespace tarnlog
