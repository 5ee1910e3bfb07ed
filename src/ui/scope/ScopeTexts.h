#pragma once

#include <QString>

#include "ui/scope/ScopeOffers.h"
#include "ui/scope/ScopeRow.h"

/// What the display parameters screen says, in the user's language.
namespace tarnlog {

/// A display type in the list of types.
QString typeName(DisplayKind type);
/// One sentence on what it shows.
QString typeHint(DisplayKind type);
/// How an item is shown, in its row.
QString typeText(const ScopeRow& row);
/// Which types are missing from the offer and why; empty when none is.
QString whyNotOffered(const TypeOffer& offer);

}  // namespace tarnlog
