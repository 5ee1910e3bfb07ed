#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// The attributes of one element, in order. Made to be cleared and filled again: once warm it allocates
/// nothing.
class SaxAttributes {
 public:
  struct Attribute {
    std::string name;
    std::string value;
  };

  void clear() { count_ = 0; }
  void addAttribute(std::string_view name, std::string_view value) {
    if (count_ == attributes_.size()) attributes_.emplace_back();
    attributes_[count_].name.assign(name);
    attributes_[count_].value.assign(value);
    ++count_;
  }

  const Attribute* begin() const { return attributes_.data(); }
  const Attribute* end() const { return attributes_.data() + count_; }
  std::size_t size() const { return count_; }

 private:
  std::vector<Attribute> attributes_;
  std::size_t count_ = 0;
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
