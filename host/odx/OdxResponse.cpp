#include "host/odx/OdxResponse.h"

#include <set>
#include <utility>

#include "host/odx/LeftOut.h"
#include "host/odx/OdxCodedType.h"
#include "host/odx/OdxComputation.h"
#include "host/odx/OdxFrame.h"
#include "host/odx/OdxValidity.h"

namespace tarnlog::host {
namespace {

constexpr int kDeepest = 16;  ///< structures within structures
constexpr std::size_t kLongestMessage = 4095;
constexpr int kMostData = 4095;  ///< parameters of one response, those of its structures included

class ResponseReader {
 public:
  ResponseReader(const OdxLayer& layer, const OdxLeftOut& leftOut) : layer_(layer), leftOut_(leftOut) {}

  /// The bits that the parameters take in all; none when nobody knows.
  std::optional<unsigned> read(XmlElement owner, std::size_t start, const std::string& prefix, int depth) {
    OdxCursor cursor(start);
    bool known = true;
    for (const XmlElement parameter : owner.selectNodes("PARAMS/PARAM")) {
      const std::string name = prefix + displayName(parameter);
      try {
        if (++parameters_ > kMostData) throw LeftOut("is one of too many");
        const OdxCursor::Place place = cursor.placeOf(parameter);
        // What fails inside may have any length.
        cursor.advance(place, {});
        const auto bits = readParameter(parameter, place, name, depth);
        cursor.advance(place, bits);
        known = known && bits;
      } catch (const LeftOut& reason) {
        known = false;
        leftOut_(name, reason.what());
      }
    }
    if (!known) return {};
    return static_cast<unsigned>(8 * (cursor.end() > start ? cursor.end() - start : 0));
  }

  std::vector<DataDescription> take() { return std::move(data_); }

 private:
  static unsigned count(XmlElement parameter, const char* name, unsigned factor) {
    const auto value = odxInteger(childText(parameter, name));
    if (!value || *value < 1 || *value > 4095) throw LeftOut("has no usable " + std::string(name));
    return static_cast<unsigned>(*value) * factor;
  }

  std::optional<unsigned> readParameter(XmlElement parameter, OdxCursor::Place place, const std::string& name,
                                        int depth) {
    const std::string_view kind = parameter.attributeOrEmpty("xsi:type");
    if (kind == "CODED-CONST" || kind == "NRC-CONST")
      return readOdxLength(parameter.firstChild("DIAG-CODED-TYPE"));
    if (kind == "MATCHING-REQUEST-PARAM") return count(parameter, "BYTE-LENGTH", 8);
    if (kind == "RESERVED") return count(parameter, "BIT-LENGTH", 1);
    if (!parameter.firstChild("DOP-REF") && !parameter.firstChild("DOP-SNREF"))
      throw LeftOut("is a parameter of the kind " + std::string(kind));
    const XmlElement object = layer_.dataObjectOf(parameter);
    if (!object) throw LeftOut("refers to a data object that is not in the container");
    if (object.name() == "DATA-OBJECT-PROP")
      return kind == "PHYS-CONST" ? readOdxLength(object.firstChild("DIAG-CODED-TYPE"))
                                  : readData(object, place, name);
    if (object.name() != "STRUCTURE") throw LeftOut("is of the kind " + std::string(object.name()));
    if (depth >= kDeepest) throw LeftOut("has structures within structures without end");
    const auto bits = read(object, place.byte, name + " / ", depth + 1);
    return object.firstChild("BYTE-SIZE") ? count(object, "BYTE-SIZE", 8) : bits;
  }

  std::optional<unsigned> readData(XmlElement object, OdxCursor::Place place, const std::string& name) {
    const XmlElement codedType = object.firstChild("DIAG-CODED-TYPE");
    const auto bits = readOdxLength(codedType);
    try {
      addData(object, readOdxCodedType(codedType), place, name);
    } catch (const LeftOut& reason) {
      leftOut_(name, reason.what());  // its length is known all the same
    }
    return bits;
  }

  void addData(XmlElement object, const OdxCodedType& type, OdxCursor::Place place, const std::string& name) {
    DataDescription data;
    data.name = unique(name);
    if (type.kind == DataKind::integer)
      placeNumber(type, place, data.layout.field);
    else
      placeBytes(type, place, data.layout);
    const bool complete = type.kind != DataKind::integer || readOdxComputation(object, data);
    if (!complete) leftOut_(data.name, "has texts for long ranges of values, which are shown as numbers");
    if (type.kind == DataKind::integer) readOdxValidity(object, data);
    if (hasOtherOdxConstraints(object, data))
      leftOut_(data.name, "has constraints on physical values or texts, which are not checked");
    data.unit = childText(layer_.library().follow(object.firstChild("UNIT-REF")), "DISPLAY-NAME");
    names_.insert(data.name);
    data_.push_back(std::move(data));
  }

  static void placeNumber(const OdxCodedType& type, OdxCursor::Place place, BitField& field) {
    const unsigned bits = type.bits.value_or(33);
    if (place.bit + bits > 32) throw LeftOut("is a number of more than 32 bits");
    field.byte = static_cast<std::uint16_t>(place.byte);
    field.bit = static_cast<std::uint8_t>(place.bit);
    field.bits = static_cast<std::uint8_t>(bits);
    field.bytes = static_cast<std::uint8_t>((place.bit + bits + 7) / 8);
    field.order = type.order;
    field.isSigned = type.isSigned;
    if (!field.isWithin(kLongestMessage)) throw LeftOut("stands beyond the longest message");
  }

  static void placeBytes(const OdxCodedType& type, OdxCursor::Place place, DataLayout& layout) {
    if (place.bit != 0 || type.bits.value_or(8) % 8 != 0)
      throw LeftOut("is a text that begins inside a byte");
    layout.kind = type.kind;
    layout.firstByte = static_cast<std::uint16_t>(place.byte);
    layout.byteCount = static_cast<std::uint16_t>(type.bits.value_or(0) / 8);
    layout.characters = type.characters;
    if (place.byte + layout.byteCount > kLongestMessage) throw LeftOut("stands beyond the longest message");
  }

  std::string unique(const std::string& name) const {
    const std::string wanted = name.empty() ? "unnamed" : name;
    std::string own = wanted;
    for (int i = 2; names_.contains(own); ++i) own = wanted + " " + std::to_string(i);
    return own;
  }

  const OdxLayer& layer_;
  const OdxLeftOut& leftOut_;
  std::set<std::string> names_;
  std::vector<DataDescription> data_;
  int parameters_ = 0;
};

}  // namespace

std::vector<DataDescription> readOdxResponse(const OdxLayer& layer, XmlElement response,
                                             const OdxLeftOut& leftOut) {
  ResponseReader reader(layer, leftOut);
  reader.read(response, 0, "", 0);
  return reader.take();
}

}  // namespace tarnlog::host
