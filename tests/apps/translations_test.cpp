#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "SourceDir.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {
namespace {

/// A text in a file of translations.
struct Translation {
  std::string file;
  std::string context;
  std::string source;
  std::string text;
  bool finished = false;
};

std::vector<Translation> translations() {
  std::vector<Translation> found;
  for (const auto& entry : std::filesystem::directory_iterator(TARNLOG_SOURCE_DIR "/translations")) {
    if (entry.path().extension() != ".ts") continue;
    XmlDocument document;
    EXPECT_FALSE(document.parse(SystemFileSystem().readAll(entry.path()))) << entry.path();
    for (const XmlElement message : document.selectNodes("/TS/context/message")) {
      const XmlElement translation = message.firstChild("translation");
      found.push_back({entry.path().filename(), message.parent().firstChild("name").text(),
                       message.firstChild("source").text(), translation.text(),
                       !translation.attribute("type")});
    }
  }
  return found;
}

/// "%1", "{}", "{0:.1f}", tags and patterns of files: what has to be the same in every language, in any
/// order.
std::multiset<std::string> placesOf(const std::string& text) {
  static const std::regex place(R"(%n|%L?\d|\{\d*(:[^}]*)?\}|</?\w+>|\*\.\w+|\t|\|)");
  return {std::sregex_token_iterator(text.begin(), text.end(), place), std::sregex_token_iterator()};
}

/// "{}" in turn are {0}, {1}: one kind in a text.
std::multiset<std::string> filledPlacesOf(const std::string& text) {
  std::multiset<std::string> places;
  int next = 0;
  for (std::string place : placesOf(text)) {
    if (place.starts_with("{") && (place[1] == '}' || place[1] == ':'))
      place.insert(1, std::to_string(next++));
    places.insert(place);
  }
  return places;
}

std::size_t mnemonics(const std::string& text) {
  static const std::regex mnemonic("(^|[^&])&[^& ]");
  static const std::regex url(R"(\w://|\?\w+=)");
  if (std::regex_search(text, url)) return 0;
  return std::size_t(
      std::distance(std::sregex_iterator(text.begin(), text.end(), mnemonic), std::sregex_iterator()));
}

TEST(Translations, AreFinishedAndKeepPlacesAndMnemonics) {
  const std::vector<Translation> all = translations();
  EXPECT_GT(all.size(), 1600U);
  for (const Translation& each : all) {
    const std::string where = each.file + ": " + each.context + ": " + each.source;
    EXPECT_TRUE(each.finished) << where;
    EXPECT_NE(each.text, "") << where;
    EXPECT_EQ(filledPlacesOf(each.text), filledPlacesOf(each.source)) << where << "\n" << each.text;
    EXPECT_EQ(mnemonics(each.text), mnemonics(each.source)) << where << "\n" << each.text;
    EXPECT_LE(mnemonics(each.text), 1U) << where;
    EXPECT_EQ(each.text.ends_with("\n"), each.source.ends_with("\n")) << where;
    EXPECT_EQ(each.text.ends_with(" "), each.source.ends_with(" ")) << where;
  }
}

/// Every language has the same texts: "./dev texts" was run for all of them.
TEST(Translations, AreThereInEveryLanguage) {
  std::map<std::string, std::multiset<std::string>> texts;
  for (const Translation& each : translations()) texts[each.file].insert(each.context + ": " + each.source);
  EXPECT_EQ(texts["tarnlog_de.ts"], texts["tarnlog_fr.ts"]);
  EXPECT_EQ(texts["tarn-record_de.ts"], texts["tarn-record_fr.ts"]);
}

}  // namespace
}  // namespace tarnlog
