#pragma once

#include <QCoreApplication>

#include "ui/common/HelpPanel.h"

namespace tarnlog {

/// What the acquisition view tells of its keys.
class KeyboardHelp {
  Q_DECLARE_TR_FUNCTIONS(KeyboardHelp)
 public:
  static HelpPage page();
};

}  // namespace tarnlog
