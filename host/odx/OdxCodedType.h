#pragma once

#include <cstdint>
#include <optional>

#include "host/vehicle/DataLayout.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog::host {

/// How a value is coded in a message (DIAG-CODED-TYPE), as far as it can be taken over.
struct OdxCodedType {
  DataKind kind = DataKind::integer;  ///< integer, text or bytes
  bool isSigned = false;
  ByteOrder order = ByteOrder::big;
  std::optional<unsigned> bits;  ///< none: up to the end of the message
};

/// LeftOut for what has no fixed place, or no form that is understood here.
OdxCodedType readOdxCodedType(XmlElement codedType);

}  // namespace tarnlog::host
