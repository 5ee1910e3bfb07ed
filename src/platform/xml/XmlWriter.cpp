#include "platform/xml/XmlWriter.h"

#include <algorithm>
#include <utility>

#include "platform/base/CountBytes.h"
#include "platform/xml/XmlEscape.h"

namespace tarnlog {
namespace {

char* put(char* out, std::string_view text) { return std::copy(text.begin(), text.end(), out); }

template <class PutValue>
char* putAttributes(char* out, const SaxAttributes& attributes, PutValue putValue) {
  for (const auto [name, value] : attributes) {
    *out++ = ' ';
    out = put(out, name);
    *out++ = '=';
    *out++ = '"';
    out = putValue(out, value);
    *out++ = '"';
  }
  return out;
}

}  // namespace

XmlWriter::XmlWriter(Output output) : output_(std::move(output)) {}

void XmlWriter::startDocument() { pending_.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"); }

void XmlWriter::processingInstruction(std::string_view target, std::string_view data) {
  closeStartTag();
  indent();
  pending_.append("<?");
  pending_.append(target);
  if (!data.empty()) {
    pending_.append(" ");
    pending_.append(data);
  }
  pending_.append("?>");
  endLine();
}

void XmlWriter::startElement(std::string_view name, const SaxAttributes& attributes) {
  closeStartTag();
  indent();
  constexpr std::size_t kAroundAttribute = 4;  // blank, equals sign and two quotes
  char* out = pending_.room(1 + name.size() + kLongestXmlEscape * attributes.textSize() +
                            kAroundAttribute * attributes.size());
  *out++ = '<';
  char* const start = put(out, name);
  out = putAttributes(start, attributes, put);
  // Hardly a row has anything to escape: one look at the whole tag finds only the quotes around the values.
  const std::string_view written(start, static_cast<std::size_t>(out - start));
  if (countBytes(written, mayNeedXmlEscape) != 2 * attributes.size())
    out = putAttributes(start, attributes, writeXmlAttributeValue);
  pending_.end(out);
  ++depth_;
  startTagOpen_ = true;
}

void XmlWriter::characters(std::string_view text) {
  if (text.empty()) return;
  if (!insideText()) textDepth_ = depth_;
  closeStartTag();
  pending_.end(writeXmlText(pending_.room(kLongestXmlEscape * text.size()), text));
}

void XmlWriter::endElement(std::string_view name) {
  --depth_;
  if (startTagOpen_) {
    pending_.append("/>");
    startTagOpen_ = false;
  } else {
    indent();
    pending_.append("</");
    pending_.append(name);
    pending_.append(">");
  }
  if (textDepth_ > depth_) textDepth_ = 0;
  endLine();
  if (depth_ <= 1) flush();
}

void XmlWriter::closeStartTag() {
  if (!startTagOpen_) return;
  startTagOpen_ = false;
  pending_.append(">");
  endLine();
}

void XmlWriter::indent() {
  if (!insideText()) pending_.append(depth_, '\t');
}

void XmlWriter::endLine() {
  if (!insideText()) pending_.append("\r\n");
}

void XmlWriter::flush() {
  struct ClearAtEnd {
    ByteBuffer& buffer;
    ~ClearAtEnd() { buffer.clear(); }
  } const clearAtEnd{pending_};
  output_(pending_.view());
}

}  // namespace tarnlog
