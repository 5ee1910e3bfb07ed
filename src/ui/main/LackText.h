#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <vector>

#include "config/SessionLoad.h"

namespace tarnlog {

/// What the vehicle does not give of a configuration, for a message.
class LackText {
  Q_DECLARE_TR_FUNCTIONS(LackText)
 public:
  /// One sentence that names the first of them; empty when there are none.
  static QString summary(const std::vector<Lack>& lacks, const QString& fileName);
  /// One line each.
  static QStringList lines(const std::vector<Lack>& lacks);

 private:
  static QString lineOf(const Lack& lack);
};

}  // namespace tarnlog
