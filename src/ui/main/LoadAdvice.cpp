#include "ui/main/LoadAdvice.h"

#include <cerrno>

#include "ui/common/SystemErrors.h"

namespace tarnlog {

QString LoadAdvice::on(const QString& failure) {
  if (tellsOf(failure, {ENOENT}))
    return tr("It may have been moved, renamed or deleted: \"Open configuration...\" (Ctrl+O) looks for it.");
  if (tellsOf(failure, {EACCES}))
    return tr("You may not read this file: ask its owner, or open a copy of it.");
  return tr(
      "Configurations, and records in XML, can be opened. Where the file was written by hand, mend what the "
      "message names; \"Save configuration\" writes one anew.");
}

}  // namespace tarnlog
