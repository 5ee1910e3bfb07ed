#pragma once

#include <QCoreApplication>
#include <QString>

namespace tarnlog {

/// What to do when a configuration file cannot be opened.
class LoadAdvice {
  Q_DECLARE_TR_FUNCTIONS(LoadAdvice)
 public:
  static QString on(const QString& failure);
};

}  // namespace tarnlog
