#pragma once

#include <memory>

#include "catalogue/SessionDocument.h"
#include "config/LoadReport.h"
#include "config/oTarnParameters.h"
#include "config/oTarnScope.h"

namespace tarnlog {

/// Finds the data item that a stored item names and takes from the catalogue what depends on the session:
/// key, type, unit, device, ECU name and address. False when the session does not offer it.
bool takeFromCatalogue(oTarnScope& scope, const SessionDocument& session);

/// Adds the item unless it is in the configuration already; what is not added goes into the report (may be
/// null).
void addOnce(oTarnParameters& parameters, std::unique_ptr<oTarnScope> scope, LoadReport* report);

/// Reports an item that the session does not offer.
void reportUnknown(const oTarnScope& scope, LoadReport* report);

}  // namespace tarnlog
