#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/text/DateText.h"
#include "platform/text/TextEncoding.h"
#include "platform/text/UserLocale.h"
#include "tests/support/TempFolder.h"

/// The C library keeps the path of LOCPATH for ever, once for each category of a locale.
extern "C" const char* __lsan_default_suppressions() { return "leak:__argz_add_sep"; }

namespace tarnlog {
namespace {

constexpr LocalDateTime kEvening{2026, 11, 6, 9, 5, 7};

TEST(DateText, RendersThePatternsOfFileNamesAndHeaders) {
  UserLocale german;
  german.dateSeparator = '.';
  german.timeSeparator = '-';
  EXPECT_EQ(formatDateTime(kEvening, "d-m-yy_Hh", german), "6-11-26_09");
  EXPECT_EQ(formatDateTime(kEvening, "d-m-yy__Hh", german), "6-11-26__09");
  EXPECT_EQ(formatDateTime(kEvening, "d/m/yy", german), "6.11.26");
  EXPECT_EQ(formatDateTime(kEvening, "Hh:Nn:ss", german), "09-05-07");
  EXPECT_EQ(formatDateTime(kEvening, "DD MM YYYY h", german), "06 11 2026 9");
  EXPECT_EQ(formatDateTime(kEvening, "dddd, d. mmm | ddd mmmm 'd''''m' d''y", UserLocale()),
            "Friday, 6. Nov | Fri November d'm 6'26");
  EXPECT_EQ(shortDateText(kEvening, UserLocale()), "11/6/2026");
  EXPECT_EQ(timeOfDayText(kEvening, UserLocale()), "9:05:07");
}

std::string windows1252(std::string_view utf8) {
  std::string bytes;
  appendWindows1252(bytes, utf8);
  return bytes;
}

TEST(TextEncoding, ConvertsWhatHasACode) {
  EXPECT_EQ(windows1252("Temp\u00E9rature de l\u2019eau \u20AC \u00B0C"),
            "Temp\xE9rature de l\x92"
            "eau \x80 \xB0"
            "C");
  EXPECT_EQ(windows1252("\u03A9 \U0001F600 \uFFFD \u0081"), "? ? ? ?");
  EXPECT_EQ(windows1252("a\xFFz\xC3"), "a?z?");
}

TEST(TextEncoding, EveryCodeComesBack) {
  for (int code = 0; code < 256; ++code) {
    const std::string byte(1, static_cast<char>(code));
    const std::string utf8 = utf8FromWindows1252(byte);
    EXPECT_TRUE(isUtf8(utf8));
    const bool none = code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
    EXPECT_EQ(windows1252(utf8), none ? "?" : byte) << code;
  }
}

TEST(TextEncoding, TellsUtf8) {
  EXPECT_TRUE(isUtf8("plain, \u00E9, \u20AC, \U0001F600"));
  for (const char* broken : {"\xE9t\xE9", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                             "long enough to be scanned by eights \xC3"})
    EXPECT_FALSE(isUtf8(broken)) << broken;
  EXPECT_TRUE(isAscii("twelve bytes"));
  EXPECT_FALSE(isAscii("twelve byt\xE9s"));
}

/// Locales as the system has them, made from its sources where those are installed.
class OwnLocales {
 public:
  explicit OwnLocales(const std::string& name, const std::string& charset = "UTF-8") {
    made_ =
        std::system(("localedef -i " + name + " -f " + charset + " " + (folder_ / name) + " > /dev/null 2>&1")
                        .c_str()) == 0;
    setenv("LOCPATH", folder_.path().c_str(), 1);
    setenv("LC_ALL", name.c_str(), 1);
  }
  ~OwnLocales() {
    unsetenv("LC_ALL");
    unsetenv("LOCPATH");
  }
  OwnLocales(const OwnLocales&) = delete;
  OwnLocales& operator=(const OwnLocales&) = delete;
  bool made() const { return made_; }

 private:
  test::TempFolder folder_;
  bool made_ = false;
};

TEST(UserLocale, DatesFollowTheSystemsShortFormatWithItsNamesAndWords) {
  const std::vector<std::array<const char*, 3>> expected = {
      {"nb_NO", "06. nov. 2026", "kl. 09.05"},
      {"eu_ES", "or., 2026.eko azaren 06a", "09:05:07"},
      {"cs_CZ", "6.11.2026", "09:05:07"},
      {"en_DK", "2026-11-06", "09:05:07"},
      {"is_IS", "f\u00F6s 6.n\u00F3v 2026", "09:05:07"}};
  for (const auto& [name, date, time] : expected) {
    const OwnLocales locales(name, name == std::string("is_IS") ? "ISO-8859-1" : "UTF-8");
    if (!locales.made()) GTEST_SKIP() << "no sources of locales here";
    EXPECT_EQ(shortDateText(kEvening, systemLocale()), date) << name;
    EXPECT_EQ(timeOfDayText(kEvening, systemLocale()), time) << name;
  }
}

TEST(UserLocale, EnvironmentWithoutALocaleGivesTheDefaults) {
  setenv("LC_ALL", "xx_XX.nowhere", 1);
  const UserLocale locale = systemLocale();
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.decimalSeparator, '.');
  EXPECT_EQ(locale.shortDatePattern, "m/d/yyyy");
  EXPECT_EQ(locale.timePattern, "h:Nn:ss");
}

}  // namespace
}  // namespace tarnlog
