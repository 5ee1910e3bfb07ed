#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "platform/base/ByteBuffer.h"
#include "platform/xml/ContentHandler.h"

namespace tarnlog {

/// Writes a document as UTF-8 text: XML declaration (version "1.0", encoding "UTF-8"), indentation with one
/// TAB per level and CR LF, escaping on; an element without content is closed at once ("/>"). Control
/// characters that XML forbids are dropped; TAB, CR and LF in attributes become character references; bytes
/// that are not UTF-8 become U+FFFD. Names are written as given. An element that holds text is not indented
/// inside. Every finished child of the root, and the end of the root, reaches the output as one call, so a
/// document cut short lacks only what was not finished. What an output call that raises was given is dropped.
class XmlWriter : public ContentHandler {
 public:
  using Output = std::function<void(std::string_view bytes)>;

  explicit XmlWriter(Output output);

  using ContentHandler::startElement;
  void startDocument() override;
  void processingInstruction(std::string_view target, std::string_view data) override;
  void startElement(std::string_view name, const SaxAttributes& attributes) override;
  void characters(std::string_view text) override;
  void endElement(std::string_view name) override;

 private:
  void closeStartTag();
  bool insideText() const { return textDepth_ != 0; }
  void indent();
  void endLine();
  void flush();

  Output output_;
  ByteBuffer pending_;
  std::size_t depth_ = 0;
  std::size_t textDepth_ = 0;  ///< depth of the outermost open element that holds text, 0 when none does
  bool startTagOpen_ = false;
};

}  // namespace tarnlog
