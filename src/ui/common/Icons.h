#pragma once

#include <QIcon>
#include <QString>

namespace tarnlog {

/// One of the drawings in `icons/`, by its file's name without ".svg". It follows the palette: lines take the
/// colour of texts at the time of painting. An unknown name gives an empty icon.
QIcon tarnIcon(const QString& name);

}  // namespace tarnlog
