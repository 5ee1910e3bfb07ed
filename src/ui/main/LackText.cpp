#include "ui/main/LackText.h"

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr std::size_t kNamed = 3;

/// "Engine speed, Throttle position, Coolant temperature": the last part of the first paths.
QString firstNames(const std::vector<Lack>& lacks) {
  QStringList names;
  for (const Lack& lack : lacks) {
    if (names.size() == kNamed) break;
    if (!lack.path.empty()) names << toQString(lack.path).section('/', -1);
  }
  return names.join(", ");
}

}  // namespace

QString LackText::lineOf(const Lack& lack) {
  const QString path = toQString(lack.path);
  switch (lack.kind) {
    case Lack::Kind::Parameters:
      return tr("Nothing was read: the file has no element \"Parameters\"");
    case Lack::Kind::Data:
      return tr("Not offered by this vehicle: %1").arg(path);
    case Lack::Kind::Duplicate:
      return tr("Configured twice, taken once: %1").arg(path);
    case Lack::Kind::WrongFunction:
      return tr("Not acquired, the ECU has another function in this vehicle: %1").arg(path);
    case Lack::Kind::ScenarioRequest:
      return tr("Request of the init scenario not offered by this vehicle: %1").arg(path);
    case Lack::Kind::StartTrigger:
      return tr("The start trigger watches data that this vehicle does not offer: start is manual");
    case Lack::Kind::StopTrigger:
      return tr("The stop trigger watches data that this vehicle does not offer: stop is manual");
  }
  return {};
}

QString LackText::summary(const std::vector<Lack>& lacks, const QString& fileName) {
  if (lacks.empty()) return {};
  if (lacks.size() == 1) return fileName + ": " + lineOf(lacks.front());
  const QString names = firstNames(lacks);
  const QString more = lacks.size() > kNamed ? names + ", ..." : names;
  return tr("%1: %2 parts do not fit this vehicle: %3").arg(fileName, QString::number(lacks.size()), more);
}

QStringList LackText::lines(const std::vector<Lack>& lacks) {
  QStringList lines;
  for (const Lack& lack : lacks) lines << lineOf(lack);
  return lines;
}

}  // namespace tarnlog
