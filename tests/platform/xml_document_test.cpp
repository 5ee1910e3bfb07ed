#include <gtest/gtest.h>

#include <string>

#include "platform/base/TarnError.h"
#include "platform/xml/XmlDocument.h"

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

TEST(XmlDocument, SelectsElementsInDocumentOrder) {
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
}

TEST(XmlDocument, TextIsAllTextBelow) {
  const XmlDocument document = parsed("<r> a<b>b<c/></b><!-- x -->&amp;<![CDATA[<d>]]>\r\n</r>");
  EXPECT_EQ(document.selectSingleNode("r").text(), " ab&<d>\n");
  EXPECT_EQ(document.selectSingleNode("r/b").text(), "b");
  EXPECT_EQ(document.selectSingleNode("r/b/c").text(), "");
}

TEST(XmlDocument, ReadsTheEncodingsThatFilesComeIn) {
  const std::string expected = "\xC3\xA9t\xC3\xA9 \xE2\x82\xAC";
  const auto text = [](std::string_view bytes) { return parsed(bytes).selectSingleNode("r").text(); };
  EXPECT_EQ(text("<r>" + expected + "</r>"), expected);
  EXPECT_EQ(text("\xEF\xBB\xBF<?xml version='1.0' encoding='windows-1252'?><r>" + expected + "</r>"),
            expected);
  EXPECT_EQ(text("<?xml version=\"1.0\" encoding=\"windows-1252\"?><r>\xE9t\xE9 \x80</r>"), expected);
  EXPECT_EQ(text("<?xml version='1.0' encoding='UTF-8'?><r>\xE9t\xE9 \x80</r>"), expected)
      << "declared wrongly";
  EXPECT_EQ(text("<?xml version='1.0' encoding='ISO-8859-1'?><r>\xC3\xA9</r>"), "\xC3\x83\xC2\xA9");
  using std::string_literals::operator""s;
  const std::string unit = "\xD8\x3D\xDE\x00"s;
  EXPECT_EQ(text("\xFE\xFF\0<\0r\0>\0\xE9\x20\xAC"s + unit + "\0<\0/\0r\0>"s),
            "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(text("\xFF\xFE<\0r\0>\0\xE9\0\x3D\xD8<\0/\0r\0>\0\n"s), "\xC3\xA9\xEF\xBF\xBD")
      << "half a pair, half a unit";
}

TEST(XmlDocument, NamesThePlaceOfTheFirstError) {
  EXPECT_EQ(placeOfError(""), "0:0");
  EXPECT_EQ(placeOfError("no document"), "0:0");
  EXPECT_EQ(placeOfError("<r>\r\n  <a>\xC3\xA9</b>\r\n</r>").substr(0, 2), "2:");
  EXPECT_EQ(placeOfError("<r>\n<a b='1'").substr(0, 2), "2:");
  EXPECT_EQ(placeOfError("<r>\r<a/>").substr(0, 2), "2:");
  EXPECT_EQ(placeOfError("<r/>\n<s/>").substr(0, 2), "2:");
  EXPECT_EQ(placeOfError(std::string_view("<r>\n\xC3\xA9\0</r>", 11)), "2:2");
}

TEST(XmlDocument, RefusesNestingWithoutEndAndStaysUsable) {
  std::string bomb;
  for (int depth = 0; depth < 200000; ++depth) bomb += "<a>";
  for (int depth = 0; depth < 200000; ++depth) bomb += "</a>";
  XmlDocument document;
  ASSERT_TRUE(document.parse(bomb));
  ASSERT_FALSE(document.parse("<r/>"));
  EXPECT_EQ(document.toText(), "<r/>");
}

}  // namespace
}  // namespace tarnlog
