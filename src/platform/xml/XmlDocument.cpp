#include "platform/xml/XmlDocument.h"

#include <algorithm>
#include <pugixml.hpp>

#include "platform/base/TarnError.h"
#include "platform/xml/XmlDecoding.h"

namespace tarnlog {
namespace {

/// Nobody nests a configuration deeper; what does is refused, so that no later walk can exhaust the stack.
constexpr int kMaximumDepth = 500;

constexpr unsigned int kParseFlags = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_pi;

bool isElement(const pugi::xml_node& node) { return node.type() == pugi::node_element; }

/// The next node of a walk in document order through what is below `top`; a null node at the end.
pugi::xml_node nextInDocument(pugi::xml_node node, const pugi::xml_node& top) {
  if (node.first_child()) return node.first_child();
  while (node != top && !node.next_sibling()) node = node.parent();
  return node == top ? pugi::xml_node() : node.next_sibling();
}

/// Runs an XPath query; a malformed expression becomes an error that names it.
template <class Query>
auto queried(const char* xpath, Query&& query) {
  try {
    return query(pugi::xpath_query(xpath));
  } catch (const pugi::xpath_exception& error) {
    throw TarnError(1, "XmlElement.selectNodes",
                    std::string("XPath expression \"") + xpath + "\": " + error.what());
  }
}

XmlParseError errorAt(std::string_view text, std::size_t offset, std::string reason) {
  XmlParseError error{1, 1, std::move(reason)};
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  for (std::size_t at = 0; at < before.size(); ++at) {
    const char c = before[at];
    const bool endsLine = c == '\n' || (c == '\r' && text.substr(at + 1, 1) != "\n");
    if (endsLine) {
      ++error.line;
      error.position = 1;
    } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
      ++error.position;
    }
  }
  return error;
}

/// What the parser lets pass and we do not: a second root element, and nesting without end.
std::optional<XmlParseError> checkStructure(const pugi::xml_document& document, std::string_view text) {
  const auto refuse = [&](const pugi::xml_node& node, const char* reason) {
    return errorAt(text, static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0)), reason);
  };
  const pugi::xml_node root = document.document_element();
  for (pugi::xml_node other = root.next_sibling(); other; other = other.next_sibling())
    if (isElement(other)) return refuse(other, "More than one root element");
  int depth = 0;
  pugi::xml_node node = document;
  while (true) {
    if (node.first_child()) {
      node = node.first_child();
      if (++depth > kMaximumDepth) return refuse(node, "Elements nested too deep");
      continue;
    }
    while (node && !node.next_sibling()) {
      node = node.parent();
      --depth;
    }
    if (!node) return std::nullopt;
    node = node.next_sibling();
  }
}

}  // namespace

std::string_view XmlElement::name() const { return pugi::xml_node(node_).name(); }

std::vector<std::string_view> XmlElement::attributeNames() const {
  std::vector<std::string_view> names;
  for (const pugi::xml_attribute attribute : pugi::xml_node(node_).attributes())
    names.emplace_back(attribute.name());
  return names;
}

std::optional<std::string_view> XmlElement::attribute(const char* name) const {
  const pugi::xml_attribute found = pugi::xml_node(node_).attribute(name);
  if (!found) return std::nullopt;
  return found.value();
}

std::string_view XmlElement::attributeOrEmpty(const char* name) const {
  return pugi::xml_node(node_).attribute(name).value();
}

std::string XmlElement::text() const {
  const pugi::xml_node top(node_);
  std::string text;
  for (pugi::xml_node node = nextInDocument(top, top); node; node = nextInDocument(node, top))
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) text += node.value();
  return text;
}

XmlElement XmlElement::parent() const { return XmlElement(pugi::xml_node(node_).parent().internal_object()); }

XmlElement XmlElement::firstChild(const char* name) const {
  pugi::xml_node child = pugi::xml_node(node_).child(name);
  while (child && !isElement(child)) child = child.next_sibling(name);
  return XmlElement(child.internal_object());
}

XmlElement XmlElement::nextSibling(const char* name) const {
  pugi::xml_node sibling = pugi::xml_node(node_).next_sibling(name);
  while (sibling && !isElement(sibling)) sibling = sibling.next_sibling(name);
  return XmlElement(sibling.internal_object());
}

XmlElement XmlElement::selectSingleNode(const char* xpath) const {
  const std::vector<XmlElement> found = selectNodes(xpath);
  return found.empty() ? XmlElement() : found.front();
}

std::vector<XmlElement> XmlElement::selectNodes(const char* xpath) const {
  if (node_ == nullptr) return {};
  return queried(xpath, [&](const pugi::xpath_query& query) {
    pugi::xpath_node_set nodes = query.evaluate_node_set(pugi::xml_node(node_));
    nodes.sort();
    std::vector<XmlElement> elements;
    elements.reserve(nodes.size());
    for (const pugi::xpath_node& found : nodes)
      if (isElement(found.node())) elements.push_back(XmlElement(found.node().internal_object()));
    return elements;
  });
}

XmlElement XmlElement::appendElement(const char* name) {
  return XmlElement(pugi::xml_node(node_).append_child(name).internal_object());
}

void XmlElement::appendText(const char* text) {
  pugi::xml_node(node_).append_child(pugi::node_pcdata).set_value(text);
}

void XmlElement::appendAttribute(const char* name, const char* value) {
  pugi::xml_node(node_).append_attribute(name).set_value(value);
}

void XmlElement::removeChild(XmlElement child) {
  pugi::xml_node(node_).remove_child(pugi::xml_node(child.node_));
}

XmlDocument::XmlDocument() : document_(std::make_unique<pugi::xml_document>()) {}
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;
XmlDocument::~XmlDocument() = default;

std::optional<XmlParseError> XmlDocument::parse(std::string_view bytes) {
  const std::string text = decodeXml(bytes);
  document_->reset();
  if (const std::size_t zero = text.find('\0'); zero != std::string::npos)
    return errorAt(text, zero, "A character that is not allowed (code 0)");
  const pugi::xml_parse_result result =
      document_->load_buffer(text.data(), text.size(), kParseFlags, pugi::encoding_utf8);
  std::optional<XmlParseError> error;
  if (result.status == pugi::status_no_document_element) {
    error = XmlParseError{0, 0, result.description()};
  } else if (!result) {
    error = errorAt(text, static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0)),
                    result.description());
  } else {
    error = checkStructure(*document_, text);
  }
  if (error) document_->reset();
  return error;
}

XmlElement XmlDocument::documentNode() const { return XmlElement(document_->internal_object()); }

void XmlDocument::appendProcessingInstruction(const char* target, const char* data) {
  pugi::xml_node instruction = document_->append_child(pugi::node_pi);
  instruction.set_name(target);
  instruction.set_value(data);
}

std::string XmlDocument::toText() const {
  struct Appender : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
      text.append(static_cast<const char*>(data), size);
    }
  } appender;
  document_->save(appender, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  return std::move(appender.text);
}

}  // namespace tarnlog
