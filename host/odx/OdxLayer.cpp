#include "host/odx/OdxLayer.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace tarnlog::host {

std::optional<std::int64_t> odxInteger(const std::string& text) {
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  const char* const first = text.data() + (hexadecimal ? 2 : 0);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(first, text.data() + text.size(), value, hexadecimal ? 16 : 10);
  const bool fits =
      value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::uint32_t>::max();
  if (error != std::errc() || end != text.data() + text.size() || !fits) return {};
  return value;
}

OdxLayer::OdxLayer(const OdxLibrary& library, XmlElement variant) : library_(library) {
  Names known;
  collect(variant, {}, known);
}

void OdxLayer::collect(XmlElement layer, Names blocked, Names& known) {
  if (!layer || std::ranges::find(chain_, layer) != chain_.end()) return;
  chain_.push_back(layer);
  const auto add = [&](XmlElement service) {
    if (!service || service.name() != "DIAG-SERVICE") return;
    const std::string name = childText(service, "SHORT-NAME");
    if (!blocked.contains(name) && known.insert(name).second) services_.push_back(service);
  };
  for (const XmlElement service : layer.selectNodes("DIAG-COMMS/DIAG-SERVICE")) add(service);
  for (const XmlElement reference : layer.selectNodes("DIAG-COMMS/DIAG-COMM-REF"))
    add(library_.find(reference.attributeOrEmpty("ID-REF")));
  for (const XmlElement parent : layer.selectNodes("PARENT-REFS/PARENT-REF")) {
    Names blockedThere = blocked;
    for (const XmlElement name : parent.selectNodes("NOT-INHERITED-DIAG-COMMS//DIAG-COMM-SNREF"))
      blockedThere.emplace(name.attributeOrEmpty("SHORT-NAME"));
    collect(library_.find(parent.attributeOrEmpty("ID-REF")), std::move(blockedThere), known);
  }
}

XmlElement OdxLayer::dataObjectOf(XmlElement parameter) const {
  if (parameter.firstChild("DOP-REF")) return library_.follow(parameter, "DOP-REF");
  const std::string_view wanted = parameter.firstChild("DOP-SNREF").attributeOrEmpty("SHORT-NAME");
  if (wanted.empty()) return {};
  for (const XmlElement layer : chain_)
    for (const XmlElement object : layer.selectNodes("DIAG-DATA-DICTIONARY-SPEC/*/*[SHORT-NAME]"))
      if (childText(object, "SHORT-NAME") == wanted) return object;
  return {};
}

std::optional<std::int32_t> OdxLayer::communicationParameter(const std::string& name) const {
  for (const XmlElement layer : chain_)
    for (const XmlElement reference : layer.selectNodes("COMPARAM-REFS/COMPARAM-REF")) {
      const std::string_view id = reference.attributeOrEmpty("ID-REF");
      if (!id.ends_with(name)) continue;
      std::string text = childText(reference, "SIMPLE-VALUE");
      if (text.empty()) text = childText(reference, "VALUE");
      const auto value = odxInteger(text);
      if (value && *value >= 0 && *value <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(*value);
    }
  return {};
}

}  // namespace tarnlog::host
