#pragma once

#include <QPlainTextEdit>
#include <string_view>

#include "ui/common/HelpPanel.h"
#include "ui/main/LogPane.h"

namespace tarnlog {

/// The log of the latest acquisition, to read and to copy.
class LogView : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit LogView(QWidget* parent = nullptr);
  static HelpPage helpPage();
  void add(std::string_view line);
  void clearLines();
  const LogPane& pane() const { return pane_; }

 private:
  LogPane pane_;
};

}  // namespace tarnlog
