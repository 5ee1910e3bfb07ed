#pragma once

#include "catalogue/SessionDocument.h"
#include "config/LoadReport.h"
#include "config/oTarnParameters.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Version 2.0: reads the root element into the configuration. What is missing leaves what was there;
/// `report` may be null.
void ReadXmlParameters(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                       LoadReport* report);

/// Version 1.0, which only drew graphs: every known item becomes a Graph with the file's colour and points.
void ReadXmlConfigV1(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                     LoadReport* report);

}  // namespace tarnlog
