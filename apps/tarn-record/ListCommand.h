#pragma once

#include <string>

#include "catalogue/SessionDocument.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::record {

/// What the vehicle offers, its catalogue, as an aligned table or as a JSON array, each with a line or object
/// per data item.
std::string catalogueList(const ferrox3::Session& vehicle, const SessionDocument& session,
                          const std::string& filter, bool json);

}  // namespace tarnlog::record
