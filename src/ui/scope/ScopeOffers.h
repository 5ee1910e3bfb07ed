#pragma once

#include <vector>

#include "config/oTarnParameters.h"

/// What a data item may be shown as, and with which earlier graphs it can be combined.
namespace tarnlog {

struct TypeOffer {
  std::vector<DisplayKind> types;
  bool number = false;       ///< texts and bytes can be shown as digits only
  bool graphBefore = false;  ///< curves and X axes need a graph above them in the list
};

TypeOffer offeredTypes(const oTarnParameters& parameters, const oTarnScope& scope);

/// The graphs above `scope` that it can be a curve on (`type` GraphIndex) or give the X axis of (GraphAxeX:
/// without those that another item gives it already). A position in the screen's list is one in this list.
std::vector<const oTarnScope*> offeredGraphs(const oTarnParameters& parameters, const oTarnScope& scope,
                                             DisplayKind type);

}  // namespace tarnlog
