#pragma once

#include <QMimeData>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <optional>
#include <vector>

/// What is dragged inside one selection screen. Other screens and programs are refused: keys and rows mean
/// nothing there.
namespace tarnlog {

inline constexpr const char* kDraggedNodes = "application/x-tarnlog-nodes";
inline constexpr const char* kDraggedRows = "application/x-tarnlog-rows";

QMimeData* dragPayload(const char* format, const void* screen, const QStringList& entries);
/// None when it is of another format or comes from elsewhere.
std::optional<QStringList> draggedEntries(const QMimeData* data, const char* format, const void* screen);
/// The same for rows of the list.
std::optional<std::vector<std::size_t>> draggedRows(const QMimeData* data, const void* screen);

/// A model whose rows move inside one selection screen.
template <class Model>
class DraggedModel : public Model {
 public:
  using Model::Model;

  QStringList mimeTypes() const override { return {kDraggedNodes, kDraggedRows}; }
  Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
  Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
};

}  // namespace tarnlog
