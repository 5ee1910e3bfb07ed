#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_document;
struct xml_node_struct;
}  // namespace pugi

namespace tarnlog {

/// A handle on an element (or the document node) of an XmlDocument: cheap to copy, valid while the document
/// lives. May be none; asking none gives none and empty texts.
class XmlElement {
 public:
  XmlElement() = default;

  explicit operator bool() const { return node_ != nullptr; }
  bool operator==(const XmlElement&) const = default;

  /// Texts stay valid while the document lives and is not changed. They are null-terminated.
  std::string_view name() const;
  /// None when the attribute is absent, which is not the same as empty.
  std::optional<std::string_view> attribute(const char* name) const;
  std::string_view attributeOrEmpty(const char* name) const;
  /// All text below this element, in document order.
  std::string text() const;

  std::vector<std::string_view> attributeNames() const;

  XmlElement parent() const;
  XmlElement firstChild(const char* name) const;
  XmlElement nextSibling(const char* name) const;

  /// XPath relative to this element. Only elements are selected. A malformed expression raises a TarnError.
  XmlElement selectSingleNode(const char* xpath) const;
  std::vector<XmlElement> selectNodes(const char* xpath) const;

  XmlElement appendElement(const char* name);
  void appendText(const char* text);
  /// Appends the attribute; does not look for one of the same name.
  void appendAttribute(const char* name, const char* value);
  void removeChild(XmlElement child);

  pugi::xml_node_struct* node() const { return node_; }

 private:
  friend class XmlDocument;
  explicit XmlElement(pugi::xml_node_struct* node) : node_(node) {}

  pugi::xml_node_struct* node_ = nullptr;
};

struct XmlParseError {
  std::size_t line = 0;      ///< 1-based; 0 when unknown
  std::size_t position = 0;  ///< 1-based position in the line
  std::string reason;
};

/// A parsed document with XPath, white space preserved.
class XmlDocument {
 public:
  XmlDocument();
  XmlDocument(XmlDocument&&) noexcept;
  XmlDocument& operator=(XmlDocument&&) noexcept;
  ~XmlDocument();

  /// Replaces the content by the parsed bytes: UTF-8 or UTF-16 with a mark, or the declared encoding UTF-8,
  /// ISO-8859-1 or windows-1252; bytes that are not UTF-8 are read as windows-1252 whatever is declared.
  /// Returns the first error, or none.
  std::optional<XmlParseError> parse(std::string_view bytes);

  /// The document node: parent of the root element and of processing instructions.
  XmlElement documentNode() const;
  XmlElement selectSingleNode(const char* xpath) const { return documentNode().selectSingleNode(xpath); }
  std::vector<XmlElement> selectNodes(const char* xpath) const { return documentNode().selectNodes(xpath); }

  void appendProcessingInstruction(const char* target, const char* data);

  /// The document as it stands, without added white space.
  std::string toText() const;

 private:
  std::unique_ptr<pugi::xml_document> document_;
};

}  // namespace tarnlog
