#include "ui/common/DesktopLocale.h"

#include <QChar>
#include <QString>
#include <string>
#include <string_view>

namespace tarnlog {

namespace {

/// The character when it fits a cell of a text file.
char plainCharacter(const QString& text, char fallback) {
  return text.size() == 1 && text.front().unicode() < 128 ? text.front().toLatin1() : fallback;
}

/// One field of a toolkit pattern ("dd", "MMM", "AP") as one of formatDateTime; names of days, names of
/// months (numbers here), time zones and halves of days have none.
std::string fieldFor(QChar letter, qsizetype length) {
  const auto repeated = [](char field, qsizetype count) {
    return std::string(static_cast<std::size_t>(count), field);
  };
  switch (letter.unicode()) {
    case 'd':
      return length > 2 ? "" : repeated('d', length);
    case 'M':
      return length > 2 ? "" : repeated('m', length);
    case 'y':
      return repeated('y', length > 2 ? 4 : 2);
    case 'h':
    case 'H':
      return repeated('h', length);
    case 'm':
      return "nn";
    case 's':
      return "ss";
    default:
      return "";
  }
}

std::string patternOf(const QString& format) {
  std::string pattern;
  bool quoted = false;
  for (qsizetype i = 0; i < format.size();) {
    const QChar letter = format[i];
    if (letter == QLatin1Char('\'')) quoted = !quoted;
    if (quoted || !letter.isLetter()) {
      // What is quoted are words, which the date of a file has no place for.
      if (!quoted && letter.unicode() < 128 && letter != QLatin1Char('\'')) pattern += letter.toLatin1();
      ++i;
      continue;
    }
    qsizetype length = 1;
    while (i + length < format.size() && format[i + length] == letter) ++length;
    pattern += fieldFor(letter, length);
    i += length;
  }
  constexpr std::string_view kAround = " ,";
  pattern.erase(0, pattern.find_first_not_of(kAround));
  pattern.erase(pattern.find_last_not_of(kAround) + 1);
  return pattern;
}

}  // namespace

UserLocale desktopLocale(const QLocale& locale) {
  UserLocale user;
  user.decimalSeparator = plainCharacter(locale.decimalPoint(), user.decimalSeparator);
  // A date with the month's name has no separators.
  if (const QString date = locale.dateFormat(QLocale::ShortFormat); !date.contains("MMM"))
    user.shortDatePattern = patternOf(date);
  // The long format has the seconds.
  if (const auto time = patternOf(locale.timeFormat(QLocale::LongFormat)); !time.empty())
    user.timePattern = time;
  user.dateSeparator = separatorOf(user.shortDatePattern, '/');
  user.timeSeparator = separatorOf(user.timePattern, ':');
  return user;
}

}  // namespace tarnlog
