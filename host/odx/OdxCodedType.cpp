#include "host/odx/OdxCodedType.h"

#include <string>
#include <string_view>

#include "host/odx/LeftOut.h"
#include "host/odx/OdxLayer.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kMostBytes = 4095;

unsigned readCount(XmlElement codedType, const char* name, std::int64_t most) {
  const auto count = odxInteger(childText(codedType, name));
  if (!count || *count < 1 || *count > most) throw LeftOut("has no usable " + std::string(name));
  return static_cast<unsigned>(*count);
}

DataKind kindOf(std::string_view base) {
  if (base == "A_UINT32" || base == "A_INT32") return DataKind::integer;
  if (base == "A_ASCIISTRING" || base == "A_UTF8STRING") return DataKind::text;
  if (base == "A_BYTEFIELD") return DataKind::bytes;
  throw LeftOut("has values of the type " + std::string(base));
}

void checkEncoding(XmlElement codedType) {
  const std::string_view encoding = codedType.attributeOrEmpty("BASE-TYPE-ENCODING");
  for (const std::string_view known : {"", "NONE", "2C", "ISO-8859-1", "ASCII", "UTF-8"})
    if (encoding == known) return;
  throw LeftOut("is encoded as " + std::string(encoding));
}

}  // namespace

std::optional<unsigned> readOdxLength(XmlElement codedType) {
  if (!codedType) throw LeftOut("has no coded type");
  const std::string_view lengths = codedType.attributeOrEmpty("xsi:type");
  if (lengths == "STANDARD-LENGTH-TYPE") return readCount(codedType, "BIT-LENGTH", 8 * kMostBytes);
  if (lengths != "MIN-MAX-LENGTH-TYPE") throw LeftOut("has a length that the message itself tells");
  const std::string longest = childText(codedType, "MAX-LENGTH");
  if (!longest.empty() && longest == childText(codedType, "MIN-LENGTH"))
    return 8 * readCount(codedType, "MAX-LENGTH", kMostBytes);
  if (codedType.attributeOrEmpty("TERMINATION") != "END-OF-PDU")
    throw LeftOut("ends at a mark, not at a fixed place");
  return {};
}

OdxCodedType readOdxCodedType(XmlElement codedType) {
  OdxCodedType type;
  type.bits = readOdxLength(codedType);
  const std::string_view base = codedType.attributeOrEmpty("BASE-DATA-TYPE");
  type.kind = kindOf(base);
  checkEncoding(codedType);
  type.isSigned = base == "A_INT32";
  const std::string_view highFirst = codedType.attributeOrEmpty("IS-HIGHLOW-BYTE-ORDER");
  if (highFirst == "false" || highFirst == "0") type.order = ByteOrder::little;
  // Of UTF-8, what is ASCII can be shown.
  if (base == "A_ASCIISTRING") type.characters = CharacterSet::latin1;
  if (codedType.firstChild("BIT-MASK")) throw LeftOut("is taken through a bit mask");
  return type;
}

}  // namespace tarnlog::host
