#pragma once

#include <QString>
#include <functional>

class QMenu;

namespace tarnlog {

class RecentFiles;

/// A menu in this one with the files of a list, which outlives it, as they are when it is opened.
QMenu* addRecentMenu(QMenu& menu, const QString& title, const RecentFiles& files,
                     const std::function<void(const QString& path)>& open);

}  // namespace tarnlog
