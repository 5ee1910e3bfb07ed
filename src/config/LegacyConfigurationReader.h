#pragma once

#include "catalogue/SessionDocument.h"
#include "config/LoadReport.h"
#include "config/oTarnParameters.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Reads a configuration file of version 1.0, from the time when the recorder only drew graphs: every data
/// item that the session offers becomes a Graph with the file's colour and points, numbered 1, 2, 3, ... in
/// file order. What this version does not know keeps its value. `root` is the file's root element.
void ReadXmlConfigV1(oTarnParameters& parameters, XmlElement root, const SessionDocument& session,
                     LoadReport* report);

}  // namespace tarnlog
