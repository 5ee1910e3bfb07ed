#include "host/odx/OdxLayer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace tarnlog::host {
namespace {

/// The farther, the less a layer counts.
int distance(XmlElement layer) {
  constexpr std::array<std::string_view, 4> kOrder{"BASE-VARIANT", "FUNCTIONAL-GROUP", "PROTOCOL",
                                                   "ECU-SHARED-DATA"};
  return static_cast<int>(std::ranges::find(kOrder, layer.name()) - kOrder.begin());
}

/// Empty when the reference is one of another parameter.
std::string simpleValue(XmlElement reference, const std::string& name) {
  if (!reference.attributeOrEmpty("ID-REF").ends_with(name)) return {};
  const std::string text = childText(reference, "SIMPLE-VALUE");
  return text.empty() ? childText(reference, "VALUE") : text;
}

/// The values of a complex parameter stand in the order in which its definition names the parts.
std::string partOfComplex(XmlElement definition, XmlElement reference, const std::string& name) {
  const auto parts = definition.selectNodes("COMPARAM|COMPLEX-COMPARAM");
  const auto values = reference.selectNodes("COMPLEX-VALUE/SIMPLE-VALUE|COMPLEX-VALUE/COMPLEX-VALUE");
  for (std::size_t i = 0; i < std::min(parts.size(), values.size()); ++i)
    if (childText(parts[i], "SHORT-NAME") == name) return plainText(values[i]);
  return {};
}

}  // namespace

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
  collectDataObjects();
}

void OdxLayer::collect(XmlElement layer, Names blocked, Names& known) {
  if (!layer || std::ranges::find(chain_, layer) != chain_.end()) return;
  chain_.push_back(layer);
  const auto add = [&](XmlElement service) {
    if (!service) return;
    const bool isJob = service.name() == "SINGLE-ECU-JOB";
    if (!isJob && service.name() != "DIAG-SERVICE") return;
    const std::string name = childText(service, "SHORT-NAME");
    if (!blocked.contains(name) && known.insert(name).second) (isJob ? jobs_ : services_).push_back(service);
  };
  for (const XmlElement service : layer.selectNodes("DIAG-COMMS/DIAG-SERVICE|DIAG-COMMS/SINGLE-ECU-JOB"))
    add(service);
  for (const XmlElement reference : layer.selectNodes("DIAG-COMMS/DIAG-COMM-REF"))
    add(library_.follow(reference));
  collectParents(layer, blocked, known);
}

void OdxLayer::collectParents(XmlElement layer, const Names& blocked, Names& known) {
  struct Parent {
    XmlElement layer;
    Names blocked;
  };
  std::vector<Parent> parents;
  for (const XmlElement reference : layer.selectNodes("PARENT-REFS/PARENT-REF")) {
    Parent parent{library_.follow(reference), blocked};
    for (const XmlElement name : reference.selectNodes("NOT-INHERITED-DIAG-COMMS//DIAG-COMM-SNREF"))
      parent.blocked.emplace(name.attributeOrEmpty("SHORT-NAME"));
    parents.push_back(std::move(parent));
  }
  std::ranges::stable_sort(parents, {}, [](const Parent& parent) { return distance(parent.layer); });
  for (Parent& parent : parents) collect(parent.layer, std::move(parent.blocked), known);
}

void OdxLayer::collectDataObjects() {
  const auto add = [this](XmlElement layer) {
    for (const XmlElement object : layer.selectNodes("DIAG-DATA-DICTIONARY-SPEC/*/*[SHORT-NAME]"))
      dataObjects_.emplace(childText(object, "SHORT-NAME"), object);
  };
  for (const XmlElement layer : chain_) add(layer);
  for (const XmlElement layer : chain_)
    for (const XmlElement import : layer.selectNodes("IMPORT-REFS/IMPORT-REF")) add(library_.follow(import));
}

XmlElement OdxLayer::dataObjectOf(XmlElement parameter) const {
  if (const XmlElement reference = parameter.firstChild("DOP-REF")) return library_.follow(reference);
  const auto found =
      dataObjects_.find(std::string(parameter.firstChild("DOP-SNREF").attributeOrEmpty("SHORT-NAME")));
  return found == dataObjects_.end() ? XmlElement() : found->second;
}

std::optional<std::int64_t> OdxLayer::communicationParameter(const std::string& name) const {
  for (const XmlElement layer : chain_)
    for (const XmlElement reference : layer.selectNodes("COMPARAM-REFS/COMPARAM-REF")) {
      const auto value = odxInteger(reference.firstChild("COMPLEX-VALUE")
                                        ? partOfComplex(library_.follow(reference), reference, name)
                                        : simpleValue(reference, name));
      if (value && *value >= 0) return value;
    }
  return {};
}

}  // namespace tarnlog::host
