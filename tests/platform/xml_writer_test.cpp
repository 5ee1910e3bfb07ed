#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlWriter.h"

namespace tarnlog {
namespace {

class XmlWriting : public testing::Test {
 protected:
  std::string text() const {
    std::string all;
    for (const std::string& call : calls) all += call;
    return all;
  }
  void startRoot() {
    writer.startDocument();
    writer.startElement("Root");
  }

  std::vector<std::string> calls;
  XmlWriter writer{[this](std::string_view bytes) { calls.emplace_back(bytes); }};
};

TEST_F(XmlWriting, IndentsElementsAndKeepsTextAsItIs) {
  SaxAttributes version;
  version.addAttribute("Version", "2.0");
  writer.startDocument();
  writer.processingInstruction("xml-stylesheet type=\"text/xsl\" href=\"http://here/a.xsl\"", "");
  writer.startElement("Root", version);
  writer.textElement("Name", "a <b> & \"c\"");
  writer.textElement("Empty", "");
  writer.startElement("List");
  writer.startElement("Item", version);
  writer.endElement("Item");
  writer.endElement("List");
  writer.startElement("Mixed");
  writer.characters("x");
  writer.startElement("In");
  writer.startElement("Deep");
  writer.endElement("Deep");
  writer.endElement("In");
  writer.characters("y\r\n");
  writer.endElement("Mixed");
  writer.endElement("Root");
  EXPECT_EQ(text(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
            "<?xml-stylesheet type=\"text/xsl\" href=\"http://here/a.xsl\"?>\r\n"
            "<Root Version=\"2.0\">\r\n"
            "\t<Name>a &lt;b&gt; &amp; \"c\"</Name>\r\n"
            "\t<Empty/>\r\n"
            "\t<List>\r\n"
            "\t\t<Item Version=\"2.0\"/>\r\n"
            "\t</List>\r\n"
            "\t<Mixed>x<In><Deep/></In>y&#13;\n</Mixed>\r\n"
            "</Root>\r\n");
}

TEST_F(XmlWriting, NeverWritesWhatXmlForbids) {
  startRoot();
  SaxAttributes attributes;
  attributes.addAttribute(
      "v", std::string_view("a\0\x01\x1F|\xFF|\xC3|\xED\xA0\x80|\xC0\x80|\xEF\xBF\xBF|\xF4\x90\x80\x80", 25));
  writer.startElement("e", attributes);
  writer.characters("\x02g\xE9");
  writer.endElement("e");
  const std::string r = "\xEF\xBF\xBD";
  EXPECT_NE(text().find("v=\"a|" + r + "|" + r + "|" + r + r + r + "|" + r + r + "|" + r + r + r + "|" + r +
                        r + r + r + "\""),
            std::string::npos)
      << text();
  EXPECT_NE(text().find(">g" + r + "<"), std::string::npos);
}

TEST_F(XmlWriting, EveryFinishedChildOfTheRootIsOneOutputCall) {
  startRoot();
  EXPECT_TRUE(calls.empty());
  writer.startElement("Header");
  writer.textElement("Date", "today");
  EXPECT_TRUE(calls.empty());
  writer.endElement("Header");
  ASSERT_EQ(calls.size(), 1u);
  writer.startElement("row");
  writer.endElement("row");
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[1], "\t<row/>\r\n");
  writer.endElement("Root");
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_EQ(calls[2], "</Root>\r\n");
}

TEST(XmlWriter, AFailedOutputLosesOnlyItsOwnBytes) {
  std::string written;
  bool full = false;
  XmlWriter writer([&](std::string_view bytes) {
    if (full) throw std::runtime_error("no space left");
    written += bytes;
  });
  writer.startElement("Root");
  writer.textElement("row", "1");
  full = true;
  EXPECT_THROW(writer.textElement("row", "2"), std::runtime_error);
  full = false;
  writer.textElement("row", "3");
  writer.endElement("Root");
  EXPECT_EQ(written, "<Root>\r\n\t<row>1</row>\r\n\t<row>3</row>\r\n</Root>\r\n");
}

TEST(SaxAttributes, IsFilledAgainAfterClearing) {
  SaxAttributes attributes;
  attributes.addAttribute("a", "1");
  attributes.addAttribute("b", "");
  attributes.clear();
  attributes.addAttribute("c", "long enough to need memory of its own");
  attributes.addAttribute("d", "4");
  std::string seen;
  for (const auto [name, value] : attributes) seen.append(name).append("=").append(value).append(";");
  EXPECT_EQ(seen, "c=long enough to need memory of its own;d=4;");
}

}  // namespace
}  // namespace tarnlog
