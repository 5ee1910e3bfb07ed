#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <array>
#include <optional>
#include <vector>

#include "catalogue/CatalogueTree.h"
#include "ui/select/DragPayload.h"
#include "ui/select/SelectionRules.h"

namespace tarnlog {

/// The pictures of the catalogue, by image number.
class CatalogueIcons {
 public:
  CatalogueIcons();
  const QIcon& of(CatalogueImage image) const { return icons_[static_cast<std::size_t>(image)]; }

 private:
  std::array<QIcon, 6> icons_;
};

/// Shows the tree of available data to a view, without an object per node. An ECU is built when the view asks
/// for its children. Rows of the list may be dropped on it, which gives them back.
class CatalogueModel : public DraggedModel<QAbstractItemModel>, private CatalogueTreeObserver {
  Q_OBJECT
 public:
  /// `rules` outlives the model.
  explicit CatalogueModel(SelectionRules& rules, QObject* parent = nullptr);
  ~CatalogueModel() override;

  CatalogueNode node(const QModelIndex& index) const;
  /// Invalid for the root and for kNone.
  QModelIndex indexOf(CatalogueNode node) const;
  /// Where to go on when this node leaves: the one behind it, or before it, or above.
  QModelIndex neighbourOf(CatalogueNode node) const;
  std::vector<CatalogueNode> nodes(const QModelIndexList& indexes) const;
  /// What the view dragged, or none when it comes from elsewhere.
  std::optional<std::vector<CatalogueNode>> dragged(const QMimeData* data) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool hasChildren(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 signals:
  /// Rows of the list were dropped here.
  void rowsDropped(const std::vector<std::size_t>& rows);

 private:
  void aboutToAdd(CatalogueNode parent, std::size_t row) override;
  void added() override { endInsertRows(); }
  void aboutToRemove(CatalogueNode parent, std::size_t first, std::size_t count) override;
  void removed() override { endRemoveRows(); }
  void fillingBegins(CatalogueNode node) override;
  void fillingEnds(CatalogueNode node) override;

  QString toolTip(CatalogueNode node) const;
  const CatalogueTree& tree() const { return rules_.tree(); }

  SelectionRules& rules_;
  CatalogueIcons icons_;
  CatalogueNode filling_ = CatalogueTree::kNone;  ///< has no children for the view yet
};

}  // namespace tarnlog
