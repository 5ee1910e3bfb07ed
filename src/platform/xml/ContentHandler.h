#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/TextArena.h"

namespace tarnlog {

/// The attributes of one element, in order. Made to be cleared and filled again: once warm it allocates
/// nothing.
class SaxAttributes {
 public:
  struct Attribute {
    std::string_view name;
    std::string_view value;
  };

  void clear() {
    attributes_.clear();
    textSize_ = 0;
    copies_.clear();
  }
  void addAttribute(std::string_view name, std::string_view value) {
    addBorrowed(copies_.copy(name), copies_.copy(value));
  }
  /// Without copying: the texts must outlive the use of these attributes.
  void addBorrowed(std::string_view name, std::string_view value) {
    attributes_.push_back({name, value});
    textSize_ += name.size() + value.size();
  }

  std::size_t size() const { return attributes_.size(); }
  /// Bytes of all names and values together.
  std::size_t textSize() const { return textSize_; }

  auto begin() const { return attributes_.begin(); }
  auto end() const { return attributes_.end(); }

 private:
  std::vector<Attribute> attributes_;
  std::size_t textSize_ = 0;
  TextArena copies_;
};

/// Takes an XML document as a stream of events. Texts are UTF-8 and unescaped.
class ContentHandler {
 public:
  virtual ~ContentHandler() = default;
  virtual void startDocument() = 0;
  /// With empty data, nothing (no blank) follows the target.
  virtual void processingInstruction(std::string_view target, std::string_view data) = 0;
  virtual void startElement(std::string_view name, const SaxAttributes& attributes) = 0;
  virtual void characters(std::string_view text) = 0;
  virtual void endElement(std::string_view name) = 0;

  void startElement(std::string_view name) { startElement(name, SaxAttributes{}); }
  void textElement(std::string_view name, std::string_view text) {
    startElement(name);
    characters(text);
    endElement(name);
  }
};

}  // namespace tarnlog
