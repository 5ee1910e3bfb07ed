#include "ui/common/DesktopLocale.h"

#include <QChar>
#include <QString>
#include <QStringView>
#include <string>

namespace tarnlog {

namespace {

/// The character when it fits a cell of a text file.
char plainCharacter(const QString& text, char fallback) {
  return text.size() == 1 && text.front().unicode() < 128 ? text.front().toLatin1() : fallback;
}

/// One field of a toolkit pattern ("dd", "MMM", "AP") as one of formatDateTime; time zones and halves of days
/// have none.
std::string fieldFor(QChar letter, qsizetype length) {
  const auto repeated = [](char field, qsizetype count) {
    return std::string(static_cast<std::size_t>(count), field);
  };
  switch (letter.unicode()) {
    case 'd':
      return repeated('d', length);
    case 'M':
      return repeated('m', length);
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

std::string literal(QStringView text) {
  QString words = text.toString();
  for (QChar& c : words)
    if (c.isSpace()) c = QLatin1Char(' ');  // the narrow ones that dates have, too
  return literalPattern(words.toStdString());
}

std::string patternOf(const QString& format) {
  std::string pattern;
  for (qsizetype i = 0; i < format.size();) {
    const QChar letter = format[i];
    qsizetype end = i + 1;
    if (letter == QLatin1Char('\'')) {
      while (end < format.size() && format[end] != letter) ++end;
      const QStringView words = QStringView(format).mid(i + 1, end - i - 1);
      pattern += words.isEmpty() ? literalPattern("'") : literal(words);
      ++end;
    } else if (letter.unicode() >= 128 || !letter.isLetter()) {
      pattern += literal(QStringView(format).mid(i, 1));
    } else {
      while (end < format.size() && format[end] == letter) ++end;
      pattern += fieldFor(letter, end - i);
    }
    i = end;
  }
  return trimmedPattern(pattern);
}

void takeNames(UserLocale& user, const QLocale& locale) {
  for (int month = 1; month <= 12; ++month) {
    const auto i = static_cast<std::size_t>(month - 1);
    user.months[i] = locale.monthName(month).toStdString();
    user.shortMonths[i] = locale.monthName(month, QLocale::ShortFormat).toStdString();
  }
  for (std::size_t day = 0; day < user.days.size(); ++day) {
    const int number = day == 0 ? 7 : static_cast<int>(day);  // Sunday is the last one there
    user.days[day] = locale.dayName(number).toStdString();
    user.shortDays[day] = locale.dayName(number, QLocale::ShortFormat).toStdString();
  }
}

}  // namespace

UserLocale desktopLocale(const QLocale& locale) {
  UserLocale user;
  user.decimalSeparator = plainCharacter(locale.decimalPoint(), user.decimalSeparator);
  // Nobody chose the toolkit's date of the C locale.
  if (const auto date = patternOf(locale.dateFormat(QLocale::ShortFormat));
      !date.empty() && locale.language() != QLocale::C)
    user.shortDatePattern = date;
  takeNames(user, locale);
  // The long format has the seconds.
  if (const auto time = patternOf(locale.timeFormat(QLocale::LongFormat)); !time.empty())
    user.timePattern = time;
  user.dateSeparator = separatorOf(user.shortDatePattern, '/');
  user.timeSeparator = separatorOf(user.timePattern, ':');
  return user;
}

}  // namespace tarnlog
