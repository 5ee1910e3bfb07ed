#include <gmock/gmock.h>

#include <QCoreApplication>
#include <cstdlib>
#include <fstream>
#include <map>

#include "SourceDir.h"
#include "apps/common/ToldTexts.h"
#include "apps/common/UserLanguages.h"
#include "apps/tarnlog/WindowTexts.h"
#include "platform/base/TarnError.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Variables = std::map<std::string, std::string>;

std::vector<std::string> languagesOf(const Variables& variables) {
  return userLanguages([&](const char* name) {
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second.c_str();
  });
}

TEST(UserLanguages, FollowTheEnvironmentAsGettextDoes) {
  EXPECT_THAT(languagesOf({}), IsEmpty());
  EXPECT_THAT(languagesOf({{"LANG", "de_CH.UTF-8"}}), ElementsAre("de_CH", "de"));
  EXPECT_THAT(languagesOf({{"LANG", "de_DE"}, {"LC_MESSAGES", "fr_FR@euro"}}), ElementsAre("fr_FR", "fr"));
  EXPECT_THAT(languagesOf({{"LANG", "de_DE"}, {"LC_MESSAGES", "fr_FR"}, {"LC_ALL", "it"}}),
              ElementsAre("it"));
  EXPECT_THAT(languagesOf({{"LANG", "de_DE"}, {"LC_ALL", ""}}), ElementsAre("de_DE", "de"));
  EXPECT_THAT(languagesOf({{"LANG", "de_DE"}, {"LANGUAGE", "nl:fr_CA:de"}}),
              ElementsAre("nl", "fr_CA", "fr", "de"));
  for (const char* const none : {"C", "POSIX", "C.UTF-8"})
    EXPECT_THAT(languagesOf({{"LC_ALL", none}, {"LANGUAGE", "de"}}), IsEmpty()) << none;
  EXPECT_THAT(languagesOf({{"LANG", "../../x.UTF-8"}, {"LANGUAGE", "/etc:de/x"}}), IsEmpty())
      << "it becomes part of a path";
}

struct LanguagesTest : testing::Test {
  std::optional<std::string> chosen(const std::vector<std::string>& languages) {
    return languageWithTexts(languages, folder.path(), "tarnlog", ".qm");
  }
  void write(const std::string& name, const std::string& text) { std::ofstream(folder / name) << text; }

  test::TempFolder folder;
};

TEST_F(LanguagesTest, TakeTheFirstThatThereAreTextsIn) {
  write("tarnlog_de.qm", "");
  write("tarnlog_fr.qm", "");
  EXPECT_EQ(chosen({"nl", "fr_CA", "fr", "de"}), "fr");
  EXPECT_EQ(chosen({"nl"}), std::nullopt);
  EXPECT_EQ(chosen({"en_GB", "en", "de"}), std::nullopt) << "the texts in the code are English";
}

TEST_F(LanguagesTest, OfTheWindowAreOnItsScreensAndOnItsCommandLine) {
  const char* const sourceTold = "Print this help message and exit";
  {
    WindowTexts texts({"de_AT", "de"}, TARNLOG_QM);
    EXPECT_EQ(texts.language(), "de");
    texts.install();
    EXPECT_EQ(QCoreApplication::translate("AcqCorner", "Paused"), "Angehalten");
    EXPECT_NE(Told::tr(sourceTold), sourceTold);
  }
  EXPECT_EQ(QCoreApplication::translate("AcqCorner", "Paused"), "Paused");
  EXPECT_EQ(Told::tr(sourceTold), sourceTold);
  write("tarnlog_de.qm", "damaged");
  testing::internal::CaptureStderr();
  EXPECT_EQ(WindowTexts({"nl"}, TARNLOG_QM).language(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  testing::internal::CaptureStderr();
  WindowTexts damaged({"de"}, folder.path());
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("tarnlog_de.qm"));
  EXPECT_EQ(Told::tr(sourceTold), sourceTold);
}

constexpr const char* kTold = R"(<?xml version="1.0" encoding="utf-8"?><!DOCTYPE TS><TS language="de">
<context><name>Told</name>
 <message><source>{} of {} answers</source><translation>{0} von {1} Antworten</translation></message>
 <message><source>no gap</source><translation>keine Lücke</translation></message>
 <message><source>{} lost</source><translation>{} {} verloren</translation></message>
 <message><source>{} late</source><translation type="unfinished">{} spät</translation></message></context>
<context><name>Other</name>
 <message><source>row</source><translation>Zeile</translation></message></context></TS>)";

TEST_F(LanguagesTest, WithoutAToolkitAreReadAsTranslatorsWriteThem) {
  write("told.ts", kTold);
  Told::setTranslator(readToldTexts(folder / "told.ts"));
  EXPECT_EQ(Told::tr("{} of {} answers", 1, 2), "1 von 2 Antworten");
  EXPECT_EQ(Told::tr("no gap"), "keine Lücke");
  EXPECT_EQ(Told::tr("{} lost", 3), "3 lost") << "there is no second value";
  EXPECT_EQ(Told::tr("{} late", 3), "3 late") << "nobody has looked over the translation";
  EXPECT_EQ(Told::tr("row"), "row") << "it is another context's";
  {
    const Told::English forFiles;
    EXPECT_EQ(Told::tr("no gap"), "no gap");
  }
  Told::setTranslator({});
  for (const char* const text : {"<TS>", "<other/>", ""}) {
    write("bad.ts", text);
    EXPECT_THROW(readToldTexts(folder / "bad.ts"), TarnError) << text;
  }
}

/// Each variable as it was.
class WithVariable {
 public:
  WithVariable(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    ::setenv(name, value, 1);
  }
  ~WithVariable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(ToldTexts, AreThoseOfTheUsersLanguage) {
  const WithVariable all("LC_ALL", "de_DE.UTF-8");
  const WithVariable list("LANGUAGE", "");
  tellInUsersLanguage("tarn-record");
  EXPECT_EQ(Told::tr("no gap"), "keine Lücke");
  Told::setTranslator({});
}

}  // namespace
}  // namespace tarnlog
