#include "ui/select/DragPayload.h"

#include <QCoreApplication>

namespace tarnlog {

namespace {

QString origin(const void* screen) {
  return QString("%1:%2").arg(QCoreApplication::applicationPid()).arg(reinterpret_cast<quintptr>(screen));
}

}  // namespace

QMimeData* dragPayload(const char* format, const void* screen, const QStringList& entries) {
  auto* const data = new QMimeData;
  data->setData(format, (QStringList{origin(screen)} + entries).join('\n').toUtf8());
  return data;
}

std::optional<QStringList> draggedEntries(const QMimeData* data, const char* format, const void* screen) {
  if (data == nullptr || !data->hasFormat(format)) return std::nullopt;
  QStringList entries = QString::fromUtf8(data->data(format)).split('\n');
  if (entries.takeFirst() != origin(screen)) return std::nullopt;
  return entries;
}

std::optional<std::vector<std::size_t>> draggedRows(const QMimeData* data, const void* screen) {
  const auto entries = draggedEntries(data, kDraggedRows, screen);
  if (!entries) return std::nullopt;
  std::vector<std::size_t> rows;
  rows.reserve(static_cast<std::size_t>(entries->size()));
  for (const QString& entry : *entries) rows.push_back(entry.toULongLong());
  return rows;
}

}  // namespace tarnlog
