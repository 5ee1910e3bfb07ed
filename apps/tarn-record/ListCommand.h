#pragma once

#include <string>

#include "catalogue/SessionDocument.h"

namespace tarnlog::record {

/// The catalogue as an aligned table or as a JSON array, each with a line or object per data item.
std::string catalogueList(const SessionDocument& session, const std::string& filter, bool json);

}  // namespace tarnlog::record
