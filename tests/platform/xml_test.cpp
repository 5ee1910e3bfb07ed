#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/base/TarnError.h"
#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlWriter.h"

namespace tarnlog {
namespace {

XmlDocument parsed(std::string_view bytes) {
  XmlDocument document;
  const auto error = document.parse(bytes);
  EXPECT_FALSE(error) << (error ? error->reason : "");
  return document;
}

std::string placeOfError(std::string_view bytes) {
  XmlDocument document;
  const auto error = document.parse(bytes);
  if (!error) return "none";
  EXPECT_FALSE(error->reason.empty());
  EXPECT_FALSE(document.selectSingleNode("*")) << "a refused document stays empty";
  return std::to_string(error->line) + ":" + std::to_string(error->position);
}

TEST(XmlDocument, SelectsElementsInDocumentOrderAndGivesTheirText) {
  const XmlDocument document =
      parsed("<?xml version='1.0'?><?a b?><r><!--c--><x n='1'>o<y n='2'/></x><x n='3'/>\n</r>");
  const XmlElement root = document.selectSingleNode("r");
  EXPECT_EQ(root.name(), "r");
  EXPECT_EQ(root.parent(), document.documentNode());
  std::string order;
  for (const XmlElement& found : document.selectNodes("//x[2] | //y | //x[1] | //x/@n | //text()"))
    order += found.attributeOrEmpty("n");
  EXPECT_EQ(order, "123");
  EXPECT_EQ(root.selectSingleNode("x[@n='3']"), root.firstChild("x").nextSibling("x"));
  EXPECT_FALSE(root.selectSingleNode("x/@n"));
  EXPECT_FALSE(root.firstChild("x").nextSibling("x").nextSibling("x"));
  EXPECT_THROW(root.selectNodes("x[@n='3'"), TarnError);
  EXPECT_THROW(root.selectNodes("count(x)"), TarnError);

  const XmlDocument texts = parsed("<r> a<b>b<c/></b><!-- x -->&amp;<![CDATA[<d>]]>\r\n</r>");
  EXPECT_EQ(texts.selectSingleNode("r").text(), " ab&<d>\n") << "all text below";
  EXPECT_EQ(texts.selectSingleNode("r/b").text() + texts.selectSingleNode("r/b/c").text(), "b");
}

TEST(XmlDocument, ReadsTheEncodingsThatFilesComeIn) {
  const std::string expected = "\xC3\xA9t\xC3\xA9 \xE2\x82\xAC";
  const auto text = [](std::string_view bytes) { return parsed(bytes).selectSingleNode("r").text(); };
  EXPECT_EQ(text("<r>" + expected + "</r>"), expected);
  EXPECT_EQ(text("\xEF\xBB\xBF<?xml version='1.0' encoding='windows-1252'?><r>" + expected + "</r>"),
            expected);
  EXPECT_EQ(text("<?xml version=\"1.0\" encoding=\"windows-1252\"?><r>\xE9t\xE9 \x80</r>"), expected);
  for (const std::string head : {"<?xml version='1.0' encoding='UTF-8'?>", ""})
    EXPECT_EQ(text(head + "<r>\xE9t\xE9 \x80</r>"), expected) << "declared wrongly, or not";
  EXPECT_EQ(text("<?xml version='1.0' encoding='ISO-8859-1'?><r>\xC3\xA9</r>"), "\xC3\x83\xC2\xA9");
  using std::string_literals::operator""s;
  const std::string unit = "\xD8\x3D\xDE\x00"s;
  EXPECT_EQ(text("\xFE\xFF\0<\0r\0>\0\xE9\x20\xAC"s + unit + "\0<\0/\0r\0>"s),
            "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(text("\xFF\xFE<\0r\0>\0\xE9\0\x3D\xD8<\0/\0r\0>\0\n"s), "\xC3\xA9\xEF\xBF\xBD")
      << "half a pair, half a unit";
}

TEST(XmlDocument, NamesThePlaceOfTheFirstErrorAndStaysUsable) {
  EXPECT_EQ(placeOfError(""), "0:0");
  EXPECT_EQ(placeOfError("no document"), "0:0");
  for (const char* second : {"<r>\r\n  <a>\xC3\xA9</b>\r\n</r>", "<r>\n<a b='1'", "<r>\r<a/>", "<r/>\n<s/>"})
    EXPECT_EQ(placeOfError(second).substr(0, 2), "2:") << second;
  EXPECT_EQ(placeOfError(std::string_view("<r>\n\xC3\xA9\0</r>", 11)), "2:2");

  std::string bomb;
  for (int depth = 0; depth < 200000; ++depth) bomb += "<a>";
  for (int depth = 0; depth < 200000; ++depth) bomb += "</a>";
  XmlDocument document;
  ASSERT_TRUE(document.parse(bomb)) << "nested without end";
  ASSERT_FALSE(document.parse("<r/>"));
  EXPECT_EQ(document.toText(), "<r/>");
}

TEST(XmlWriter, IndentsElementsAndGivesEachChildOfTheRootInOneCall) {
  std::vector<std::string> calls;
  XmlWriter writer([&](std::string_view bytes) { calls.emplace_back(bytes); });
  SaxAttributes version;
  version.addAttribute("Version", "2.0");
  writer.startDocument();
  writer.processingInstruction("xml-stylesheet type=\"text/xsl\" href=\"http://here/a.xsl\"", "");
  writer.startElement("Root", version);
  EXPECT_TRUE(calls.empty());
  writer.textElement("Name", "a <b> & \"c\"");
  writer.startElement("List");
  writer.startElement("Item", version);
  writer.endElement("Item");
  EXPECT_EQ(calls.size(), 1u);
  writer.endElement("List");
  writer.textElement("Empty", "");
  writer.startElement("Mixed");
  writer.characters("x");
  writer.startElement("In");
  writer.startElement("Deep");
  writer.endElement("Deep");
  writer.endElement("In");
  writer.characters("y\r\n");
  writer.endElement("Mixed");
  writer.endElement("Root");
  EXPECT_THAT(calls, testing::ElementsAre(
                         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                         "<?xml-stylesheet type=\"text/xsl\" href=\"http://here/a.xsl\"?>\r\n"
                         "<Root Version=\"2.0\">\r\n"
                         "\t<Name>a &lt;b&gt; &amp; \"c\"</Name>\r\n",
                         "\t<List>\r\n"
                         "\t\t<Item Version=\"2.0\"/>\r\n"
                         "\t</List>\r\n",
                         "\t<Empty/>\r\n", "\t<Mixed>x<In><Deep/></In>y&#13;\n</Mixed>\r\n", "</Root>\r\n"));
}

TEST(XmlWriter, NeverWritesWhatXmlForbids) {
  std::string text;
  XmlWriter writer([&](std::string_view bytes) { text += bytes; });
  SaxAttributes attributes;
  attributes.addAttribute(
      "v", std::string_view("a\0\x01\x1F|\xFF|\xC3|\xED\xA0\x80|\xC0\x80|\xEF\xBF\xBF|\xF4\x90\x80\x80", 25));
  writer.startElement("Root", attributes);
  writer.textElement("e", "\x02g\xE9");
  writer.endElement("Root");
  for (std::size_t at = 0; (at = text.find("\xEF\xBF\xBD")) != std::string::npos;) text.replace(at, 3, "?");
  EXPECT_EQ(text, "<Root v=\"a|?|?|???|??|???|????\">\r\n\t<e>g?</e>\r\n</Root>\r\n");
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

}  // namespace
}  // namespace tarnlog
