#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// The attributes of one element, in order. Made to be cleared and filled again: once warm it allocates
/// nothing. The texts lie behind one another in one string, as a row of a hundred cells is read in one go.
class SaxAttributes {
 public:
  /// Valid until the attributes are changed.
  struct Attribute {
    std::string_view name;
    std::string_view value;
  };

  void clear() {
    text_.clear();
    ends_.clear();
  }
  void addAttribute(std::string_view name, std::string_view value) {
    text_.append(name);
    const std::size_t nameEnd = text_.size();
    text_.append(value);
    ends_.push_back({nameEnd, text_.size()});
  }

  std::size_t size() const { return ends_.size(); }
  /// Bytes of all names and values together.
  std::size_t textSize() const { return text_.size(); }

  class Iterator {
   public:
    Iterator(const SaxAttributes& attributes, std::size_t position)
        : attributes_(&attributes), position_(position) {}
    Attribute operator*() const {
      const Ends& ends = attributes_->ends_[position_];
      const std::string_view text = attributes_->text_;
      return {text.substr(start_, ends.name - start_), text.substr(ends.name, ends.value - ends.name)};
    }
    Iterator& operator++() {
      start_ = attributes_->ends_[position_].value;
      ++position_;
      return *this;
    }
    bool operator==(const Iterator& other) const { return position_ == other.position_; }

   private:
    const SaxAttributes* attributes_;
    std::size_t position_;
    std::size_t start_ = 0;  ///< of the attribute in the text
  };
  Iterator begin() const { return {*this, 0}; }
  Iterator end() const { return {*this, ends_.size()}; }

 private:
  struct Ends {
    std::size_t name;
    std::size_t value;
  };

  std::string text_;
  std::vector<Ends> ends_;
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
