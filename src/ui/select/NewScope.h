#pragma once

#include <memory>

#include "config/oTarnScope.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// A data item to record, made from its `data` element in the session document: numbers get a graph over
/// their range, everything else a digital display.
std::unique_ptr<oTarnScope> newScope(XmlElement data);

}  // namespace tarnlog
