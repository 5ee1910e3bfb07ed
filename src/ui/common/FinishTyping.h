#pragma once

class QWidget;

namespace tarnlog {

/// What is being typed in this widget tree counts as if the focus had left it: a number is read, a line is
/// completed. A shortcut that saves or starts something leaves the focus where it is.
void finishTyping(const QWidget& within);

}  // namespace tarnlog
