#include "ui/review/LastForeignChoice.h"

#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

namespace {

constexpr const char* kSetting = "ForeignTable";
constexpr std::size_t kMostHeaders = 1000;

/// Numbers with blanks between them, which separators are not: their codes stand for them.
std::string textOf(const ForeignTableChoice& choice) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << int{choice.separator} << ' ' << int{choice.decimal} << ' ' << choice.headerLines << ' '
       << (choice.timeColumn ? static_cast<long>(*choice.timeColumn) : -1) << ' ' << choice.timeUnit << ' '
       << choice.utf8;
  return text.str();
}

std::optional<ForeignTableChoice> choiceOf(const std::string& text) {
  std::istringstream cells(text);
  cells.imbue(std::locale::classic());
  int separator = 0;
  int decimal = 0;
  long timeColumn = -1;
  ForeignTableChoice choice;
  cells >> separator >> decimal >> choice.headerLines >> timeColumn >> choice.timeUnit >> choice.utf8;
  choice.separator = static_cast<char>(separator);
  choice.decimal = static_cast<char>(decimal);
  if (timeColumn >= 0) choice.timeColumn = static_cast<std::size_t>(timeColumn);
  const bool known = cells && std::string_view(",;\t| ").find(choice.separator) != std::string_view::npos &&
                     (choice.decimal == '.' || choice.decimal == ',') && choice.headerLines <= kMostHeaders;
  return known ? std::optional(choice) : std::nullopt;
}

/// The first row has several cells, one of them its time.
bool suits(const ForeignTableChoice& choice, const ReadableFile& file) {
  const std::vector<std::vector<std::string>> lines = foreignLines(file, choice);
  if (lines.size() <= choice.headerLines) return false;
  const std::vector<std::string>& row = lines[choice.headerLines];
  if (row.size() < 2) return false;
  return !choice.timeColumn ||
         (*choice.timeColumn < row.size() && foreignTime(row[*choice.timeColumn], choice));
}

}  // namespace

std::optional<ForeignTableChoice> lastForeignChoice(const SettingsStore& settings, const ReadableFile& file) {
  const auto choice = choiceOf(settings.read(kSetting).value_or(""));
  return choice && suits(*choice, file) ? choice : std::nullopt;
}

void keepForeignChoice(SettingsStore& settings, const ForeignTableChoice& choice) {
  settings.write(kSetting, textOf(choice));
}

}  // namespace tarnlog
