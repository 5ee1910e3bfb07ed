#pragma once

class QWidget;

namespace tarnlog {

struct Guide;

/// Shows what the messages mean in a window of its own above `owner`, which need not wait for it; Escape
/// closes it. The guide has them.
void showMessageTable(const Guide& guide, QWidget& owner);

}  // namespace tarnlog
