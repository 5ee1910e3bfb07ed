#include "ui/scope/ScopeTexts.h"

#include <QCoreApplication>

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

struct Screen {
  Q_DECLARE_TR_FUNCTIONS(TarnPaSc)
};

}  // namespace

QString typeName(std::int32_t type) {
  switch (type) {
    case oTarnScope::kDigital:
      return Screen::tr("Digital");
    case oTarnScope::kBarGraph:
      return Screen::tr("BarGraph");
    case oTarnScope::kGraph:
      return Screen::tr("Graph");
    case oTarnScope::kGraphIndex:
      return Screen::tr("GraphIndex");
    case oTarnScope::kGraphAxeX:
      return Screen::tr("GraphAxeX");
    default:
      return Screen::tr("None");
  }
}

QString typeHint(std::int32_t type) {
  switch (type) {
    case oTarnScope::kDigital:
      return Screen::tr("The value as digits or text");
    case oTarnScope::kBarGraph:
      return Screen::tr("A bar between a minimum and a maximum");
    case oTarnScope::kGraph:
      return Screen::tr("A graph of its own against time");
    case oTarnScope::kGraphIndex:
      return Screen::tr("A further curve on the graph of a data above");
    case oTarnScope::kGraphAxeX:
      return Screen::tr("The X axis of the graph of a data above");
    default:
      return Screen::tr("Recorded, and not shown");
  }
}

QString typeText(const ScopeRow& row) {
  if (row.type == oTarnScope::kGraphIndex) return Screen::tr("Graph (%1)").arg(toQString(row.graph));
  if (row.type == oTarnScope::kGraphAxeX) return Screen::tr("X Axis Graph(%1)").arg(toQString(row.graph));
  return typeName(row.type);
}

QString whyNotOffered(const TypeOffer& offer) {
  if (!offer.number)
    return Screen::tr(
        "Only numbers can be shown as bar, graph, curve or X axis: this data is a text or bytes.");
  if (!offer.graphBefore)
    return Screen::tr(
        "GraphIndex and GraphAxeX need a graph to belong to: no data above this one in the list is a Graph.");
  return {};
}

}  // namespace tarnlog
