#include "records/ForeignTable.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <map>
#include <utility>

#include "platform/base/TextArena.h"
#include "platform/text/TextEncoding.h"
#include "records/ForeignCells.h"
#include "records/ForeignRows.h"
#include "records/RecordCell.h"
#include "records/RecordDate.h"
#include "records/RecordWalk.h"

namespace tarnlog {

namespace {

constexpr std::size_t kSample = 256 * 1024;
constexpr std::size_t kLines = 100;    ///< of them
constexpr std::size_t kFewLines = 10;  ///< however long they are
constexpr double kDay = 86400;         ///< seconds
constexpr double kMicroseconds = 1e6;
constexpr std::string_view kSeparators = "\t;|, ";  ///< the likeliest first

using Lines = std::vector<std::vector<std::string>>;

NotARecord noTable(const std::string& why) {
  return {1, "ForeignTable", why + ", expected a text file with a line for each row and columns of numbers"};
}

std::string beginningOf(const ReadableFile& file) {
  std::string text(kSample, '\0');
  text.resize(file.readAt(0, text.data(), text.size()));
  return text;
}

void checkText(std::string_view text) {
  if (text.empty()) throw noTable("the file is empty");
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
    throw noTable("the text is UTF-16; save it as UTF-8");
  const bool binary = std::any_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' &&
           std::string_view("\t\r\n\f\v\x1A").find(c) == std::string_view::npos;
  });
  if (binary) throw noTable("the file holds bytes that are no text");
  const std::size_t first = text.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  if (first == text.npos || text[first] == '<' || text[first] == '{') throw noTable("this is no table");
}

/// Characters that are cut off at the end of the sample say nothing.
bool looksLikeUtf8(std::string_view text) { return isUtf8(text.substr(0, text.find_last_of("\r\n,;\t|"))); }

bool isNumber(std::string_view cell) { return foreignNumber(cell, '.') || foreignNumber(cell, ','); }
bool isValue(std::string_view cell) { return isNumber(cell) || foreignMoment(cell); }

/// How many cells most lines have, and how many lines have so many.
struct Layout {
  std::size_t columns = 0;
  std::size_t lines = 0;
};

Layout layoutOf(const Lines& lines) {
  std::map<std::size_t, std::size_t> counts;
  for (const auto& line : lines) ++counts[line.size()];
  Layout best;
  for (const auto& [columns, count] : counts)
    if (columns > 1 && count >= best.lines) best = {columns, count};
  return best;
}

/// A row has as many cells as most lines, and a number or a time. The first one of several is looked for, as
/// headers may have numbers, too.
std::size_t headerLinesOf(const Lines& lines, std::size_t columns) {
  constexpr std::ptrdiff_t kSeveral = 3;
  const auto isRow = [&](const std::vector<std::string>& line) {
    return line.size() == columns && std::any_of(line.begin(), line.end(), isValue);
  };
  for (auto line = lines.begin(); line != lines.end(); ++line) {
    const auto some = line + std::min(kSeveral, lines.end() - line);
    if (isRow(*line) && 2 * std::count_if(line, some, isRow) > some - line)
      return static_cast<std::size_t>(line - lines.begin());
  }
  throw noTable("no column has numbers");
}

char decimalOf(const Lines& lines, const ForeignTableChoice& choice) {
  SeparatorVote vote;
  for (std::size_t i = choice.headerLines; i < lines.size(); ++i)
    for (const std::string& cell : lines[i]) vote.addCell(cell);
  return choice.separator == ',' ? '.' : vote.separator();
}

/// By column; empty where there are none. Rows or headings alone may have a separator at their end.
std::vector<ForeignHeading> headingsOf(const Lines& lines, std::size_t headerLines, std::size_t columns) {
  std::vector<ForeignHeading> headings(columns);
  const auto isHeading = [&](std::size_t line) {
    if (line >= lines.size()) return false;
    const std::size_t cells = lines[line].size();
    return cells == columns || (cells > 1 && (cells == columns + 1 || cells + 1 == columns));
  };
  if (headerLines == 0 || !isHeading(headerLines - 1)) return headings;
  const std::vector<std::string>& last = lines[headerLines - 1];
  const std::size_t told = std::min(last.size(), columns);
  const bool hasUnits =
      headerLines > 1 && isHeading(headerLines - 2) &&
      std::any_of(last.begin(), last.begin() + static_cast<std::ptrdiff_t>(told),
                  [](const std::string& cell) {
                    return cell.empty() || cell.front() == '[' || cell.front() == '(' || secondsOf(cell);
                  });
  const std::vector<std::string>& names = hasUnits ? lines[headerLines - 2] : last;
  for (std::size_t i = 0; i < std::min(names.size(), columns); ++i) {
    std::string name = names[i];
    std::replace(name.begin(), name.end(), '\n', ' ');
    headings[i] = foreignHeading(name);
    if (!hasUnits || i >= told) continue;
    std::string unit = last[i];
    if (unit.size() > 1 && (unit.front() == '[' || unit.front() == '('))
      unit = unit.substr(1, unit.size() - 2);
    headings[i].unit = unit;
  }
  return headings;
}

bool isCalledTime(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return name == "t" || name.starts_with("time") || name.starts_with("zeit") || name.starts_with("temps") ||
         name.starts_with("date") || name.ends_with("time") || name.ends_with("timestamp");
}

/// Clock times begin again at midnight.
bool isMidnight(double before, double time) {
  return time < kDay && before < kDay && before - time > kDay / 2;
}

/// Whether all rows have a time there that does not go back; and goes on, where its name does not tell.
bool isTime(const Lines& lines, const ForeignTableChoice& choice, std::size_t column, bool named) {
  std::optional<double> before;
  for (std::size_t i = choice.headerLines; i < lines.size(); ++i) {
    if (column >= lines[i].size()) continue;
    const auto time = foreignTime(lines[i][column], choice);
    if (!time || (before && !named && *time <= *before)) return false;
    if (before && *time < *before && !isMidnight(*before, *time)) return false;
    before = time;
  }
  return before.has_value();
}

std::optional<std::size_t> timeColumnOf(const Lines& lines, const ForeignTableChoice& choice,
                                        const std::vector<ForeignHeading>& headings) {
  for (const bool named : {true, false})
    for (std::size_t i = 0; i < headings.size(); ++i)
      if ((!named || isCalledTime(headings[i].name)) && isTime(lines, choice, i, named)) return i;
  return std::nullopt;
}

constexpr double kLongAgo = 1e8;  ///< seconds since 1970, of 1973

/// By the heading; else a number of this size is no drive in seconds, but a moment since 1970.
double timeUnitOf(const Lines& lines, const ForeignTableChoice& choice,
                  const std::vector<ForeignHeading>& headings) {
  if (!choice.timeColumn) return 1;
  if (const auto unit = secondsOf(headings[*choice.timeColumn].unit)) return *unit;
  const auto first =
      choice.headerLines < lines.size() && *choice.timeColumn < lines[choice.headerLines].size()
          ? foreignNumber(lines[choice.headerLines][*choice.timeColumn], choice.decimal)
          : std::nullopt;
  if (!first) return 1;
  for (const double unit : {1e-9, 1e-6, 1e-3})
    if (*first * unit > kLongAgo * 10) return unit;
  return 1;
}

}  // namespace

std::vector<std::vector<std::string>> foreignLines(const ReadableFile& file,
                                                   const ForeignTableChoice& choice) {
  Lines lines;
  ForeignRows rows(file, choice.separator);
  const auto isEnough = [&] {
    return lines.size() == kLines || (lines.size() >= kFewLines && rows.nextPlace() > kSample);
  };
  while (!isEnough() && rows.next()) {
    std::vector<std::string>& to = lines.emplace_back();
    for (const std::span<char> cell : rows.cells())
      to.push_back(choice.utf8 ? std::string(view(cell)) : utf8FromWindows1252(view(cell)));
  }
  return lines;
}

ForeignTablePreview lookAtForeignTable(const ReadableFile& file) {
  const std::string text = beginningOf(file);
  checkText(text);
  ForeignTablePreview best;
  Layout layout;
  for (const char separator : kSeparators) {
    ForeignTableChoice choice;
    choice.separator = separator;
    choice.utf8 = looksLikeUtf8(text);
    Lines lines = foreignLines(file, choice);
    const Layout found = layoutOf(lines);
    // A blank may stand in more lines than what parts their cells: in dates, and before the table.
    if (4 * found.lines <= 5 * layout.lines) continue;
    layout = found;
    best = {choice, std::move(lines)};
  }
  if (layout.columns == 0) throw noTable("the lines have no columns");
  ForeignTableChoice& choice = best.choice;
  choice.headerLines = headerLinesOf(best.lines, layout.columns);
  choice.decimal = decimalOf(best.lines, choice);
  const auto headings = headingsOf(best.lines, choice.headerLines, layout.columns);
  choice.timeColumn = timeColumnOf(best.lines, choice, headings);
  choice.timeUnit = timeUnitOf(best.lines, choice, headings);
  return best;
}

std::optional<double> foreignTime(std::string_view cell, const ForeignTableChoice& choice) {
  if (const auto number = foreignNumber(cell, choice.decimal)) {
    const double seconds = *number * choice.timeUnit;
    return std::isfinite(seconds) ? std::optional(seconds) : std::nullopt;
  }
  if (const auto moment = foreignMoment(cell)) return moment->seconds;
  return std::nullopt;
}

namespace {

class ForeignTableReader : public RecordReader {
 public:
  ForeignTableReader(const ReadableFile& file, const ForeignTableChoice& choice)
      : file_(file), choice_(choice) {
    const Lines lines = foreignLines(file, choice);
    const Layout layout = layoutOf(lines);
    if (layout.columns == 0 && !lines.empty()) columns_ = lines.back().size();
    columns_ = std::max(columns_, layout.columns);
    if (columns_ > kMostRecordColumns) throw tooManyColumns("ForeignTable");
    if (columns_ == 0 || (choice.timeColumn && *choice.timeColumn >= columns_))
      throw noTable("there is no such time column");
    makeHead(headingsOf(lines, choice.headerLines, columns_));
    for (std::size_t i = choice.headerLines; i < lines.size() && !findZero(lines[i]); ++i) {
    }
    values_.resize(recordings_.front().groups.front().columns.size());
  }

  void read(RecordConsumer& consumer) override {
    reading_ = {};
    consumer.recording(0);
    std::size_t number = 0;
    for (ForeignRows rows(file_, choice_.separator); rows.next();) {
      if (++number <= choice_.headerLines) continue;
      if (rows.unclosed())
        reading_.unclosed.add(rows.line());
      else if (!readRow(rows.cells(), consumer))
        reading_.damaged.add(rows.line());
    }
    tellMissing();
  }

 private:
  struct Faults {
    std::uint64_t rows = 0;
    std::size_t firstLine = 0;
    void add(std::size_t line) {
      if (rows++ == 0) firstLine = line;
    }
  };
  /// What is counted while the rows are read.
  struct Reading {
    std::uint64_t rows = 0;
    double days = 0;  ///< that clock times have gone past midnight
    double newest = 0;
    Faults damaged;
    Faults unclosed;
  };

  void tellMissing() {
    missing_.clear();
    tellFaults(reading_.damaged, std::string("expected ") + (choice_.timeColumn ? "a time and " : "") +
                                     "at most " + std::to_string(columns_) + " cells");
    tellFaults(reading_.unclosed, "a cell begins with a quote that is not closed");
  }

  void tellFaults(const Faults& faults, const std::string& why) {
    if (faults.rows == 0) return;
    missing_.push_back("line " + std::to_string(faults.firstLine) + ": " + std::to_string(faults.rows) +
                       (faults.rows == 1 ? " row" : " rows, this the first,") + " passed over: " + why);
  }

  void makeHead(const std::vector<ForeignHeading>& headings) {
    RecordHead& head = recordings_.emplace_back();
    RecordGroup& group = head.groups.emplace_back();
    for (std::size_t i = 0; i < columns_; ++i) {
      if (i == choice_.timeColumn) continue;
      RecordColumn& column = group.columns.emplace_back();
      column.name = headings[i].name.empty() ? "C" + std::to_string(i + 1) : headings[i].name;
      column.unit = headings[i].unit;
    }
  }

  /// False when this row has no time.
  bool findZero(const std::vector<std::string>& row) {
    if (!choice_.timeColumn) return true;
    if (*choice_.timeColumn >= row.size()) return false;
    const std::string& cell = row[*choice_.timeColumn];
    const auto first = foreignTime(cell, choice_);
    if (!first) return false;
    const auto moment = foreignNumber(cell, choice_.decimal) ? std::nullopt : foreignMoment(cell);
    if (!moment && *first < kLongAgo) return true;
    zero_ = *first;
    isClock_ = moment && !moment->hasDate;
    if (moment && moment->hasDate)
      recordings_.front().local = dateOf(
          std::chrono::sys_seconds(std::chrono::seconds(static_cast<std::int64_t>(std::floor(*zero_)))));
    if (!moment && *zero_ < kLongAgo * 90)
      recordings_.front().utcNanoseconds = static_cast<std::int64_t>(*zero_ * 1e9);
    return true;
  }

  bool readRow(std::span<const std::span<char>> cells, RecordConsumer& consumer) {
    if (cells.size() > columns_) return false;
    const auto time = timeOf(cells);
    if (!time || !std::isfinite(*time)) return false;
    texts_.clear();
    std::fill(values_.begin(), values_.end(), RecordValue());
    for (std::size_t i = 0; i < cells.size(); ++i)
      if (i != choice_.timeColumn)
        values_[i - (choice_.timeColumn && i > *choice_.timeColumn ? 1 : 0)] = valueOf(cells[i]);
    consumer.row({0, *time, {}, values_, {}, {}});
    ++reading_.rows;
    return true;
  }

  std::optional<double> timeOf(std::span<const std::span<char>> cells) {
    if (!choice_.timeColumn) return static_cast<double>(reading_.rows);
    if (*choice_.timeColumn >= cells.size()) return std::nullopt;
    auto time = foreignTime(view(cells[*choice_.timeColumn]), choice_);
    if (!time) return std::nullopt;
    if (!zero_) return time;
    // Of seconds since 1970, a double holds no more digits.
    *time = std::round((*time - *zero_) * kMicroseconds) / kMicroseconds;
    if (isClock_ && *time + reading_.days * kDay < reading_.newest - kDay / 2) ++reading_.days;
    return reading_.newest = *time + reading_.days * kDay;
  }

  RecordValue valueOf(std::span<char> cell) {
    RecordValue value = cellValue(cell.data(), cell.data() + cell.size(), choice_.decimal);
    if (value.kind != RecordValue::Kind::Text) return value;
    if (const auto number = foreignNumber(value.text, choice_.decimal))
      return {RecordValue::Kind::Number, *number, {}};
    if (!choice_.utf8 || !isUtf8(value.text)) value.text = texts_.copy(utf8FromWindows1252(value.text));
    return value;
  }

  const ReadableFile& file_;
  ForeignTableChoice choice_;
  std::size_t columns_ = 0;
  std::optional<double> zero_;  ///< of its times: the first one, where they are moments
  bool isClock_ = false;        ///< they have no date and begin again at midnight
  Reading reading_;
  std::vector<RecordValue> values_;
  TextArena texts_;
};

}  // namespace

std::unique_ptr<RecordReader> openForeignTable(const ReadableFile& file, const ForeignTableChoice& choice) {
  return std::make_unique<ForeignTableReader>(file, choice);
}

}  // namespace tarnlog
