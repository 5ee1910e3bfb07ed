#pragma once

#include "catalogue/SessionDocument.h"
#include "config/LoadReport.h"
#include "config/oTarnParameters.h"
#include "platform/xml/XmlDocument.h"

/// Reads a configuration file of version 2.0 into a configuration. `root` is the file's root element. A value
/// that is absent or cannot be read leaves the old one; nothing stops the reading. `report` may be null.
namespace tarnlog {

/// Everything that the file holds, data items included; nothing at all when it has no "Parameters".
void ReadXmlParameters(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                       LoadReport* report);

/// Appends the data items that the session offers. They keep the `index` of the file, so a dropped one leaves
/// a gap.
void ReadXmlDatas(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                  LoadReport* report);

}  // namespace tarnlog
