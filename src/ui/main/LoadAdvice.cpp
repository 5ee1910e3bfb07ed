#include "ui/main/LoadAdvice.h"

#include <cerrno>
#include <system_error>

namespace tarnlog {

/// The system's own words are in the user's language.
QString LoadAdvice::on(const QString& failure) {
  const auto says = [&](int error) {
    return failure.contains(QString::fromLocal8Bit(std::generic_category().message(error).c_str()));
  };
  if (says(ENOENT))
    return tr("It may have been moved, renamed or deleted: \"Open configuration...\" (Ctrl+O) looks for it.");
  if (says(EACCES)) return tr("You may not read this file: ask its owner, or open a copy of it.");
  return tr(
      "Configurations, and records in XML, can be opened. Where the file was written by hand, mend what the "
      "message names; \"Save configuration\" writes one anew.");
}

}  // namespace tarnlog
