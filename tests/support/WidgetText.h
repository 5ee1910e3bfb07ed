#pragma once

#include <QAbstractItemView>
#include <QTreeView>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarnlog::test {

/// The child with this name.
template <class Widget = QWidget>
Widget& childOf(const QObject& parent, const char* name) {
  auto* const found = parent.findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
  return *found;
}

/// The items as they are seen: "Brakes *Engine[Status Reset]". A selected one has a star, an expanded one
/// what is below it in brackets; cells of several columns stand side by side: "Speed|km/h".
inline std::string itemsText(const QAbstractItemView& view, const std::vector<int>& columns = {0},
                             const QModelIndex& parent = {}) {
  const QAbstractItemModel& model = *view.model();
  const auto* const tree = qobject_cast<const QTreeView*>(&view);
  std::string text;
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex item = model.index(row, 0, parent);
    text += text.empty() ? "" : " ";
    text += view.selectionModel()->isSelected(item) ? "*" : "";
    for (const int column : columns) {
      if (column != columns.front()) text += "|";
      text += model.index(row, column, parent).data().toString().toStdString();
    }
    if (tree != nullptr && tree->isExpanded(item)) text += "[" + itemsText(view, columns, item) + "]";
  }
  return text;
}

}  // namespace tarnlog::test
