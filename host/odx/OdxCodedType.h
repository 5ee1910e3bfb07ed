#pragma once

#include <cstdint>
#include <optional>

#include "host/vehicle/description/DataLayout.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog::host {

/// How a value is coded in a message (DIAG-CODED-TYPE), as far as it can be taken over.
struct OdxCodedType {
  DataKind kind = DataKind::integer;  ///< integer, text or bytes
  bool isSigned = false;
  ByteOrder order = ByteOrder::big;
  CharacterSet characters = CharacterSet::ascii;  ///< of a text
  std::optional<unsigned> bits;                   ///< none: up to the end of the message
};

/// How many bits it takes, whatever they mean; none: up to the end of the message. LeftOut when only the
/// message itself tells.
std::optional<unsigned> readOdxLength(XmlElement codedType);

/// LeftOut for what has no fixed place, or no form that is understood here.
OdxCodedType readOdxCodedType(XmlElement codedType);

}  // namespace tarnlog::host
