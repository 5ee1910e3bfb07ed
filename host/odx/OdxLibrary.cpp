#include "host/odx/OdxLibrary.h"

#include <fmt/format.h>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

OdxLibrary::OdxLibrary(const std::vector<PdxEntry>& entries) {
  documents_.reserve(entries.size());
  for (const PdxEntry& entry : entries) {
    XmlDocument& document = documents_.emplace_back();
    if (const auto error = document.parse(entry.bytes))
      throw TarnError(1, "OdxLibrary",
                      fmt::format("{}, line {}: {}", entry.name, error->line, error->reason));
    if (!document.selectSingleNode("ODX"))
      throw TarnError(1, "OdxLibrary", entry.name + ": expected an ODX document (root element ODX)");
    for (const XmlElement element : document.selectNodes("//*[@ID]"))
      byId_.emplace(element.attributeOrEmpty("ID"), element);
  }
}

XmlElement OdxLibrary::find(std::string_view id) const {
  const auto found = byId_.find(id);
  return found == byId_.end() ? XmlElement() : found->second;
}

XmlElement OdxLibrary::follow(XmlElement owner, const char* referenceName) const {
  return find(owner.firstChild(referenceName).attributeOrEmpty("ID-REF"));
}

std::vector<XmlElement> OdxLibrary::layers(const char* kind) const {
  std::vector<XmlElement> all;
  for (const XmlDocument& document : documents_)
    for (const XmlElement element : document.selectNodes(("//" + std::string(kind)).c_str()))
      if (element.attribute("ID")) all.push_back(element);
  return all;
}

std::string childText(XmlElement element, const char* name) {
  constexpr std::string_view kSpace = " \t\r\n";
  const std::string text = element.firstChild(name).text();
  const std::size_t first = text.find_first_not_of(kSpace);
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::string displayName(XmlElement element) {
  std::string name = childText(element, "LONG-NAME");
  return name.empty() ? childText(element, "SHORT-NAME") : name;
}

}  // namespace tarnlog::host
