#pragma once

#include <QCoreApplication>

#include "ui/common/HelpPanel.h"

namespace tarnlog {

/// What looking at a record tells of its keys.
class ReviewHelp {
  Q_DECLARE_TR_FUNCTIONS(ReviewHelp)
 public:
  static HelpPage page();
};

}  // namespace tarnlog
