#include "host/odx/OdxFrame.h"

#include <algorithm>

#include "host/odx/LeftOut.h"
#include "host/odx/OdxCodedType.h"
#include "host/service/HexText.h"

namespace tarnlog::host {
namespace {

constexpr std::size_t kLongestFrame = 4095;

/// Puts a number of up to 32 bits into the frame, which grows as needed.
void put(Frame& frame, OdxCursor::Place place, const OdxCodedType& type, std::int64_t value) {
  BitField field;
  field.byte = static_cast<std::uint16_t>(place.byte);
  field.bit = static_cast<std::uint8_t>(place.bit);
  field.bits = static_cast<std::uint8_t>(*type.bits);
  field.bytes = static_cast<std::uint8_t>((place.bit + *type.bits + 7) / 8);
  field.order = type.order;
  frame.resize(std::max<std::size_t>(frame.size(), place.byte + field.bytes));
  writeBits(field, static_cast<std::uint32_t>(value), frame.data());
}

void putBytes(Frame& frame, OdxCursor::Place place, const std::vector<std::uint8_t>& bytes) {
  frame.resize(std::max(frame.size(), place.byte + bytes.size()));
  std::ranges::copy(bytes, frame.begin() + static_cast<std::ptrdiff_t>(place.byte));
}

OdxCodedType fixedType(XmlElement codedType, OdxCursor::Place place) {
  OdxCodedType type = readOdxCodedType(codedType);
  const bool fits =
      type.kind == DataKind::integer ? place.bit + type.bits.value_or(33) <= 32 : type.bits.has_value();
  if (!fits || place.byte + *type.bits / 8 >= kLongestFrame)
    throw LeftOut("has a parameter of no usable length");
  return type;
}

std::optional<unsigned> putConstant(Frame& frame, OdxCursor::Place place, XmlElement codedType,
                                    const std::string& text) {
  const OdxCodedType type = fixedType(codedType, place);
  if (type.kind == DataKind::integer) {
    const auto value = odxInteger(text);
    if (!value) throw LeftOut("has a constant that is not a number: " + text);
    const std::int64_t beyond = std::int64_t{1} << *type.bits;
    if (*value >= beyond || *value < -beyond / 2)
      throw LeftOut("has a constant that does not fit in its bits: " + text);
    put(frame, place, type, *value);
  } else {
    const auto bytes = type.kind == DataKind::text
                           ? std::optional(std::vector<std::uint8_t>(text.begin(), text.end()))
                           : bytesFromHex(text);
    if (!bytes || bytes->size() * 8 != *type.bits)
      throw LeftOut("has a constant of the wrong length: " + text);
    putBytes(frame, place, *bytes);
  }
  return type.bits;
}

/// The coded number of a physical default: only where both are the same.
std::optional<unsigned> putDefault(Frame& frame, OdxCursor::Place place, const OdxLayer& layer,
                                   XmlElement parameter) {
  const char* const key =
      parameter.firstChild("PHYS-CONSTANT-VALUE") ? "PHYS-CONSTANT-VALUE" : "PHYSICAL-DEFAULT-VALUE";
  const XmlElement object = layer.dataObjectOf(parameter);
  if (!parameter.firstChild(key) || !object) throw LeftOut("needs an input: " + displayName(parameter));
  if (childText(object.firstChild("COMPU-METHOD"), "CATEGORY") != "IDENTICAL")
    throw LeftOut("has a default that is computed: " + displayName(parameter));
  return putConstant(frame, place, object.firstChild("DIAG-CODED-TYPE"), childText(parameter, key));
}

}  // namespace

OdxCursor::Place OdxCursor::placeOf(XmlElement parameter) const {
  Place place;
  const auto bit = odxInteger(childText(parameter, "BIT-POSITION"));
  place.bit = bit && *bit >= 0 && *bit < 8 ? static_cast<unsigned>(*bit) : 0;
  const auto byte = odxInteger(childText(parameter, "BYTE-POSITION"));
  if (byte && *byte >= 0 && *byte < static_cast<std::int64_t>(kLongestFrame))
    place.byte = start_ + static_cast<std::size_t>(*byte);
  else if (next_)
    place.byte = *next_;
  else
    throw LeftOut("stands behind data of variable length");
  if (place.byte >= kLongestFrame) throw LeftOut("stands beyond the longest message");
  return place;
}

void OdxCursor::advance(Place place, std::optional<unsigned> bits) {
  if (!bits) {
    next_.reset();
    return;
  }
  next_ = place.byte + (place.bit + *bits + 7) / 8;
  end_ = std::max(end_, *next_);
}

Frame readOdxFrame(const OdxLayer& layer, XmlElement request) {
  Frame frame;
  OdxCursor cursor;
  for (const XmlElement parameter : request.selectNodes("PARAMS/PARAM")) {
    const std::string_view kind = parameter.attributeOrEmpty("xsi:type");
    const OdxCursor::Place place = cursor.placeOf(parameter);
    std::optional<unsigned> bits;
    if (kind == "CODED-CONST") {
      bits = putConstant(frame, place, parameter.firstChild("DIAG-CODED-TYPE"),
                         childText(parameter, "CODED-VALUE"));
    } else if (kind == "VALUE" || kind == "PHYS-CONST") {
      bits = putDefault(frame, place, layer, parameter);
    } else if (kind == "RESERVED") {
      const auto length = odxInteger(childText(parameter, "BIT-LENGTH"));
      if (!length || *length < 1 || *length > 32) throw LeftOut("has a gap of no usable length");
      bits = static_cast<unsigned>(*length);
      frame.resize(std::max<std::size_t>(frame.size(), place.byte + (place.bit + *bits + 7) / 8));
    } else {
      throw LeftOut("has a parameter of the kind " + std::string(kind));
    }
    cursor.advance(place, bits);
  }
  if (frame.empty()) throw LeftOut("has no request");
  return frame;
}

}  // namespace tarnlog::host
