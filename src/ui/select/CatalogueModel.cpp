#include "ui/select/CatalogueModel.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "ui/common/BusyPointer.h"
#include "ui/common/Convert.h"
#include "ui/common/Icons.h"
#include "ui/select/DataToolTip.h"
#include "ui/select/DragPayload.h"

namespace tarnlog {

namespace {

/// What is red is italic, too: not everybody sees the colour.
QFont italic() {
  QFont font;
  font.setItalic(true);
  return font;
}

}  // namespace

CatalogueIcons::CatalogueIcons()
    : icons_{QIcon(),          tarnIcon("ecu"),      tarnIcon("request"), tarnIcon("device"),
             tarnIcon("data"), tarnIcon("reference")} {}

CatalogueModel::CatalogueModel(SelectionRules& rules, QObject* parent) : DraggedModel(parent), rules_(rules) {
  rules_.tree().setObserver(this);
}

CatalogueModel::~CatalogueModel() { rules_.tree().setObserver(nullptr); }

CatalogueNode CatalogueModel::node(const QModelIndex& index) const {
  return index.isValid() ? static_cast<CatalogueNode>(index.internalId()) : CatalogueTree::kRoot;
}

QModelIndex CatalogueModel::indexOf(CatalogueNode node) const {
  if (node == CatalogueTree::kRoot || node == CatalogueTree::kNone) return {};
  return createIndex(static_cast<int>(tree().row(node)), 0, quintptr{node});
}

QModelIndex CatalogueModel::neighbourOf(CatalogueNode node) const {
  const QModelIndex leaving = indexOf(node);
  for (const int row : {leaving.row() + 1, leaving.row() - 1})
    if (const QModelIndex sibling = index(row, 0, leaving.parent()); sibling.isValid()) return sibling;
  return leaving.parent();
}

std::vector<CatalogueNode> CatalogueModel::nodes(const QModelIndexList& indexes) const {
  std::vector<CatalogueNode> found;
  found.reserve(static_cast<std::size_t>(indexes.size()));
  for (const QModelIndex& index : indexes) found.push_back(node(index));
  return found;
}

QModelIndex CatalogueModel::index(int row, int column, const QModelIndex& parent) const {
  const CatalogueNode of = node(parent);
  const auto& children = tree().children(of);
  const auto at = static_cast<std::size_t>(row);
  if (row < 0 || column != 0 || at >= children.size() || rowCount(parent) == 0) return {};
  return createIndex(row, 0, quintptr{children[at]});
}

QModelIndex CatalogueModel::parent(const QModelIndex& child) const {
  return indexOf(child.isValid() ? tree().parent(node(child)) : CatalogueTree::kNone);
}

int CatalogueModel::rowCount(const QModelIndex& parent) const {
  const CatalogueNode of = node(parent);
  if (of == filling_ || tree().awaitsFilling(of)) return 0;
  return static_cast<int>(tree().children(of).size());
}

int CatalogueModel::columnCount(const QModelIndex& /*parent*/) const { return 1; }

bool CatalogueModel::hasChildren(const QModelIndex& parent) const {
  return !tree().children(node(parent)).empty();
}

bool CatalogueModel::canFetchMore(const QModelIndex& parent) const {
  return parent.isValid() && tree().awaitsFilling(node(parent));
}

void CatalogueModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  const BusyPointer busy;
  rules_.expand(node(parent));
}

QVariant CatalogueModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto& content = tree().content(node(index));
  switch (role) {
    case Qt::DisplayRole:
      return toQString(content.text);
    case Qt::DecorationRole:
      return icons_.of(tree().image(node(index)));
    case Qt::ForegroundRole:
      if (content.colour == CatalogueTree::kDefaultColour) return {};
      return toQColor(content.colour, QGuiApplication::palette());
    case Qt::FontRole:
      return content.colour == CatalogueTree::kDefaultColour ? QVariant() : italic();
    case Qt::ToolTipRole:
      return toolTip(node(index));
    default:
      return {};
  }
}

QString CatalogueModel::toolTip(CatalogueNode node) const {
  const auto& content = tree().content(node);
  if (content.image == CatalogueImage::ecu) return DataToolTip::ofEcu(content.tag);
  if (content.image == CatalogueImage::request) return DataToolTip::ofRequest(content.tag);
  return content.tag ? DataToolTip::ofData(content.tag) : toQString(content.text);
}

/// An ECU stands for no data, so there is nothing to drag.
Qt::ItemFlags CatalogueModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  const auto& content = tree().content(node(index));
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
  if (content.image != CatalogueImage::ecu) flags |= Qt::ItemIsDragEnabled;
  if (content.image == CatalogueImage::data || content.image == CatalogueImage::reference)
    flags |= Qt::ItemNeverHasChildren;
  return flags;
}

// --- drag and drop

QMimeData* CatalogueModel::mimeData(const QModelIndexList& indexes) const {
  QStringList keys;
  for (const CatalogueNode data : rules_.dataNodes(nodes(indexes)))
    keys << toQString(tree().content(data).key);
  return keys.isEmpty() ? nullptr : dragPayload(kDraggedNodes, &rules_, keys);
}

std::optional<std::vector<CatalogueNode>> CatalogueModel::dragged(const QMimeData* data) const {
  const auto keys = draggedEntries(data, kDraggedNodes, &rules_);
  if (!keys) return std::nullopt;
  std::vector<CatalogueNode> found;
  for (const QString& key : *keys) {
    const CatalogueNode node = tree().find(fromQString(key));
    if (node != CatalogueTree::kNone) found.push_back(node);
  }
  return found;
}

bool CatalogueModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/,
                                     int /*column*/, const QModelIndex& /*parent*/) const {
  return draggedEntries(data, kDraggedRows, &rules_).has_value();
}

bool CatalogueModel::dropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/,
                                  int /*column*/, const QModelIndex& /*parent*/) {
  const auto rows = draggedRows(data, &rules_);
  if (!rows) return false;
  emit rowsDropped(*rows);
  return true;
}

// --- changes of the tree

void CatalogueModel::aboutToAdd(CatalogueNode parent, std::size_t row) {
  beginInsertRows(indexOf(parent), static_cast<int>(row), static_cast<int>(row));
}

void CatalogueModel::aboutToRemove(CatalogueNode parent, std::size_t first, std::size_t count) {
  beginRemoveRows(indexOf(parent), static_cast<int>(first), static_cast<int>(first + count - 1));
}

void CatalogueModel::fillingBegins(CatalogueNode node) {
  if (node == CatalogueTree::kRoot)
    beginResetModel();
  else
    filling_ = node;
}

void CatalogueModel::fillingEnds(CatalogueNode node) {
  if (node == CatalogueTree::kRoot) {
    endResetModel();
    return;
  }
  const auto count = static_cast<int>(tree().children(node).size());
  if (count == 0) {
    emit layoutAboutToBeChanged();
    filling_ = CatalogueTree::kNone;
    emit layoutChanged();  // there is nothing to expand after all
    return;
  }
  beginInsertRows(indexOf(node), 0, count - 1);
  filling_ = CatalogueTree::kNone;
  endInsertRows();
}

}  // namespace tarnlog
