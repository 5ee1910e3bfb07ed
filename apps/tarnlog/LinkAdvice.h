#pragma once

#include <QCoreApplication>
#include <QString>

#include "apps/tarnlog/CarConnection.h"

namespace tarnlog {

/// What to do when a vehicle cannot be opened.
class LinkAdvice {
  Q_DECLARE_TR_FUNCTIONS(LinkAdvice)
 public:
  /// Empty where the failure says it itself.
  static QString on(const QString& failure, const CarConnection& connection);

 private:
  static QString onFile();
  static QString onAdapter();
  static QString onNetwork();
};

}  // namespace tarnlog
