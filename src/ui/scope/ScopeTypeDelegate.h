#pragma once

#include <QStyledItemDelegate>

namespace tarnlog {

/// Draws a display type with a patch of the item's colour before it. The patch has an outline and the text is
/// brightened or darkened where needed, so that black or yellow can be told from any background.
class ScopeTypeDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace tarnlog
