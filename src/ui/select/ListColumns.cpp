#include "ui/select/ListColumns.h"

#include <QEvent>
#include <QHeaderView>
#include <QTreeView>
#include <cmath>

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

/// In twips, from the list's width in twips.
std::array<int, 4> firstWidths(int list) {
  constexpr int kLessForData = 60;
  const int sixth = list / 6;
  return {2 * sixth - kLessForData, 2 * sixth, sixth, sixth};
}

}  // namespace

ListColumns::ListColumns(QTreeView& list) : QObject(&list), list_(list) {
  list.viewport()->installEventFilter(this);
  connect(list.header(), &QHeaderView::sectionResized, this, [this](int column, int /*before*/, int width) {
    if (!applying_ && column < static_cast<int>(widths_.size()))
      widths_[static_cast<std::size_t>(column)] = width;
  });
}

bool ListColumns::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Resize) fit(list_.viewport()->width());
  return false;
}

void ListColumns::fit(int listWidth) {
  if (listWidth <= 0 || listWidth == listWidth_) return;
  if (listWidth_ == 0) {
    const auto twips = firstWidths(listWidth * kTwipsPerPixel);
    for (std::size_t i = 0; i < widths_.size(); ++i)
      widths_[i] = static_cast<double>(twips[i]) / kTwipsPerPixel;
  } else {
    for (double& width : widths_) width *= static_cast<double>(listWidth) / listWidth_;
  }
  listWidth_ = listWidth;
  apply();
}

void ListColumns::apply() {
  applying_ = true;
  for (std::size_t i = 0; i < widths_.size(); ++i)
    list_.header()->resizeSection(static_cast<int>(i), static_cast<int>(std::lround(widths_[i])));
  applying_ = false;
}

}  // namespace tarnlog
