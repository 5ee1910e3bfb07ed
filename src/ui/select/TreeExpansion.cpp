#include "ui/select/TreeExpansion.h"

#include <QTreeView>

namespace tarnlog {

namespace {

/// More is not read anyway, and would cost time at each key.
constexpr std::size_t kMostFoundToExpand = 200;

}  // namespace

TreeExpansion::TreeExpansion(QTreeView& view, CatalogueModel& model, const SelectionRules& rules)
    : QObject(&view), view_(view), model_(model), rules_(rules) {
  connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { remember(); });
}

void TreeExpansion::remember() {
  if (reset_) return;
  reset_ = true;
  if (view_.currentIndex().isValid()) current_ = rules_.tree().content(model_.node(view_.currentIndex())).tag;
  if (filtered_) return;
  expanded_.clear();
  rememberBelow({});
}

void TreeExpansion::rememberBelow(const QModelIndex& parent) {
  for (int row = 0; row < model_.rowCount(parent); ++row) {
    const QModelIndex index = model_.index(row, 0, parent);
    if (!view_.isExpanded(index)) continue;
    expanded_.emplace_back(rules_.tree().content(model_.node(index)).key);
    rememberBelow(index);
  }
}

void TreeExpansion::forget() {
  expanded_.clear();
  current_ = {};
  restore();
}

void TreeExpansion::restore() {
  if (!reset_) return;
  reset_ = false;
  filtered_ = rules_.filtering();
  if (filtered_) {
    expandFound();
    view_.scrollToTop();
    return;
  }
  for (const std::string& key : expanded_) expand(rules_.tree().find(key));
  restoreCurrent();
}

bool TreeExpansion::expand(CatalogueNode node) {
  const QModelIndex index = model_.indexOf(node);
  if (!index.isValid()) return false;
  model_.fetchMore(index);
  view_.expand(index);
  return true;
}

/// The node may stand elsewhere now, in an ECU that has to be built first.
void TreeExpansion::restoreCurrent() {
  if (!current_) return;
  XmlElement uce = current_;
  while (uce.parent().attribute("c")) uce = uce.parent();
  if (uce != current_) expand(rules_.tree().find(uce.attributeOrEmpty("c")));
  const QModelIndex index = model_.indexOf(rules_.tree().find(current_.attributeOrEmpty("c")));
  if (!index.isValid()) return;
  view_.setCurrentIndex(index);
  view_.scrollTo(index);
}

void TreeExpansion::expandFound() {
  std::size_t shown = 0;
  for (const auto& ecu : rules_.found()) {
    shown += ecu.data;
    if (shown > kMostFoundToExpand) return;
    const CatalogueNode node = rules_.tree().find(ecu.key);
    if (!expand(node)) continue;
    for (const CatalogueNode below : rules_.tree().children(node)) expand(below);
  }
}

}  // namespace tarnlog
