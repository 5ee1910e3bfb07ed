#include "ui/main/LogPane.h"

#include <gtest/gtest.h>

namespace tarnlog {
namespace {

TEST(LogPane, BeginsWithAnEmptyLine) {
  LogPane pane;
  EXPECT_FALSE(pane.add("19:05:07 one"));
  EXPECT_FALSE(pane.add("19:05:08 two"));
  EXPECT_EQ(pane.text(), "\r\n19:05:07 one\r\n19:05:08 two");
  pane.clear();
  pane.add("three");
  EXPECT_EQ(pane.text(), "\r\nthree");
}

/// 32000 characters are still whole; one more and the line after it drops the first 15999. Characters, not
/// bytes: half of these have two.
TEST(LogPane, CutsWhatIsTooLongBeforeItAdds) {
  std::string full;
  while (full.size() < 31998 / 2 * 3) full += "xé";
  LogPane pane;
  pane.add(full);
  EXPECT_FALSE(pane.add("")) << "32000 characters are not too many";
  EXPECT_TRUE(pane.add("last"));
  // What is left begins with character 16000 of: CR LF, then "xé" over and over.
  const std::string& text = pane.text();
  EXPECT_EQ(text.substr(0, 5), "éxé");
  EXPECT_EQ(text.substr(text.size() - 8), "\r\n\r\nlast");
  EXPECT_FALSE(pane.add("next"));
}

}  // namespace
}  // namespace tarnlog
