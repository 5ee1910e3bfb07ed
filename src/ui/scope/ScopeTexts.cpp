#include "ui/scope/ScopeTexts.h"

#include <QCoreApplication>

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

struct Screen {
  Q_DECLARE_TR_FUNCTIONS(TarnPaSc)
};

}  // namespace

QString typeName(DisplayKind type) {
  switch (type) {
    case DisplayKind::kNone:
      return Screen::tr("None");
    case DisplayKind::kDigital:
      return Screen::tr("Digital");
    case DisplayKind::kBarGraph:
      return Screen::tr("BarGraph");
    case DisplayKind::kGraph:
      return Screen::tr("Graph");
    case DisplayKind::kGraphIndex:
      return Screen::tr("GraphIndex");
    case DisplayKind::kGraphAxeX:
      return Screen::tr("GraphAxeX");
  }
  return {};
}

QString typeHint(DisplayKind type) {
  switch (type) {
    case DisplayKind::kNone:
      return Screen::tr("Recorded, and not shown");
    case DisplayKind::kDigital:
      return Screen::tr("The value as digits or text");
    case DisplayKind::kBarGraph:
      return Screen::tr("A bar between a minimum and a maximum");
    case DisplayKind::kGraph:
      return Screen::tr("A graph of its own against time");
    case DisplayKind::kGraphIndex:
      return Screen::tr("A further curve on the graph of a data above");
    case DisplayKind::kGraphAxeX:
      return Screen::tr("The X axis of the graph of a data above");
  }
  return {};
}

QString typeText(const ScopeRow& row) {
  switch (row.type) {
    case DisplayKind::kNone:
    case DisplayKind::kDigital:
    case DisplayKind::kBarGraph:
    case DisplayKind::kGraph:
      return typeName(row.type);
    case DisplayKind::kGraphIndex:
      return Screen::tr("Graph (%1)").arg(toQString(row.graph));
    case DisplayKind::kGraphAxeX:
      return Screen::tr("X Axis Graph(%1)").arg(toQString(row.graph));
  }
  return {};
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
