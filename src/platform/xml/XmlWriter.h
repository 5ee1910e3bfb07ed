#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/xml/ContentHandler.h"

namespace tarnlog {

/// Writes a document as UTF-8 text: XML declaration (version "1.0", encoding "UTF-8"), indentation with one
/// TAB per level and CR LF, escaping on; an element without content is closed at once ("/>"). Control
/// characters that XML forbids are dropped; TAB, CR and LF in attributes become character references. Every
/// finished child of the root, and the end of the root, reaches the output as one call, so a document cut
/// short lacks only what was not finished.
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
  void newLine();
  void flush();

  Output output_;
  std::string pending_;
  int depth_ = 0;
  bool startTagOpen_ = false;
  bool hasText_ = false;
};

}  // namespace tarnlog
