#include "apps/tarn-record/ShowText.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <ctime>
#include <string_view>
#include <utility>

#include "apps/common/TerminalText.h"
#include "apps/tarn-record/TextTable.h"
#include "platform/text/Numbers.h"
#include "platform/text/Told.h"
#include "records/RecordMarks.h"

namespace tarnlog::record {

namespace {

using Align = TextTable::Align;

constexpr std::size_t kMostMarks = 100;
constexpr std::size_t kMostLabels = 20;
constexpr double kWholeBelow = 1e15;
constexpr int kAsRecorded = 7;  // digits of what was measured
constexpr int kComputed = 6;    // and of what is computed from it

std::string withDecimals(double value, int decimals) {
  std::string text;
  appendFixed(text, value, decimals, '.');
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

/// Empty where there is no such time.
std::string timeText(double seconds) {
  return std::abs(seconds) < kWholeBelow ? withDecimals(seconds, 3) : measureText(seconds, kAsRecorded);
}

std::string timesText(std::int64_t count) {
  return count == 1 ? Told::tr("once") : Told::tr("{} times", count);
}

/// As the record tells it; UTC as local time, too.
std::string beginText(const RecordHead& head) {
  if (head.utcNanoseconds) {
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    const std::time_t utc = *head.utcNanoseconds / kNanoseconds;
    return fmt::format("{:%Y-%m-%d %H:%M:%S} ({:%Y-%m-%d %H:%M:%S} UTC)", fmt::localtime(utc),
                       fmt::gmtime(utc));
  }
  if (!head.local) return Told::tr("not told");
  const LocalDateTime& at = *head.local;
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", at.year, at.month, at.day, at.hour, at.minute,
                     at.second);
}

std::string formatText(const ShownRecord& shown) {
  const double size = static_cast<double>(shown.table->bytes);
  const std::string bytes = size < 1e4   ? Told::tr("{} bytes", shown.table->bytes)
                            : size < 1e7 ? fmt::format("{:.0f} kB", size / 1e3)
                                         : fmt::format("{:.0f} MB", size / 1e6);
  const std::string kind = shown.format == "mf4"   ? Told::tr("measurement file (MDF 4)")
                           : shown.format == "xml" ? Told::tr("XML record")
                                                   : Told::tr("text record");
  return fmt::format("{}, {}", kind, bytes);
}

/// Lines "Name  text"; a text's own lines stand under each other.
void addFact(TextTable& table, std::string name, std::string_view text) {
  if (!name.empty()) name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    table.add({std::exchange(name, {}), std::string(text.substr(0, end))});
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

TextTable factTable() { return TextTable({Align::Left, Align::Left}); }

void addFacts(TextTable& table, const ShownRecord& shown) {
  addFact(table, Told::tr("File"), shown.table->path);
  addFact(table, Told::tr("Kind"), formatText(shown));
  if (shown.recordings.size() != 1)
    addFact(table, Told::tr("Recordings"), std::to_string(shown.recordings.size()));
  for (const std::string& each : shown.table->missing) addFact(table, Told::tr("Missing"), each);
}

void addFacts(TextTable& table, const ShownRecording& shown) {
  const TableRecording& recording = *shown.recording;
  const double begin = recording.begin();
  const double end = recording.end();
  addFact(table, Told::tr("Began"), beginText(recording.head));
  addFact(table, Told::tr("Lasts"),
          Told::tr("{}, from {} s to {} s", durationText(end - begin), timeText(begin), timeText(end)));
  addFact(table, shown.tellsAnswers() ? Told::tr("Answers") : Told::tr("Rows"),
          std::to_string(recording.rows()));
  for (const auto& [name, text] : recording.head.facts)
    if (name != kQualityFact && name != kConfigurationFact) addFact(table, name, text);
  addFact(table, Told::tr("Quality"), shown.quality);
}

std::string markLine(const TableMark& mark) {
  using Kind = RecordNote::Kind;
  std::string text = markText({mark.kind, mark.time, mark.till, mark.number, {}});
  if (mark.kind == Kind::Gap) text = Told::tr("{} of {} s", text, timeText(mark.till - mark.time));
  if (mark.kind == Kind::ClockStep) text = Told::tr("{} of {} s", text, timeText(mark.till));
  return mark.text.empty() ? text : text + ": " + mark.text;
}

std::string marks(const ShownRecording& shown) {
  TextTable table({Align::Right, Align::Left}, 2);
  std::size_t count = 0;
  for (const TableMark& mark : shown.recording->marks)
    if (shown.shows(mark) && ++count <= kMostMarks) table.add({timeText(mark.time) + " s", markLine(mark)});
  if (count == 0) return {};
  const std::string more =
      count > kMostMarks ? "  " + Told::tr("and {} more: --json has them all", count - kMostMarks) + "\n"
                         : "";
  return "\n" + Told::tr("Marks") + "\n" + table.text() + more;
}

std::string titleOf(const ShownDatum& datum) {
  const std::string& unit = datum.column->about.unit;
  return unit.empty() ? datum.name : datum.name + " (" + unit + ")";
}

/// `above`: the heading of the last column, which is left out without one.
TextTable wideTable(const std::vector<const ShownDatum*>& data, const std::string& above) {
  std::vector<std::string> headings{Told::tr("Data"),    Told::tr("Unit"), Told::tr("Values"),
                                    Told::tr("Minimum"), Told::tr("at s"), Told::tr("Maximum"),
                                    Told::tr("at s"),    Told::tr("Mean"), Told::tr("Deviation")};
  if (!above.empty()) headings.push_back(above);
  std::vector<Align> columns(headings.size(), Align::Right);
  columns[0] = columns[1] = Align::Left;
  TextTable table(std::move(columns), 2);
  table.add(std::move(headings));
  for (const ShownDatum* const datum : data) {
    const RecordFigures& figures = datum->figures;
    std::vector<std::string> cells{datum->name,
                                   datum->column->about.unit,
                                   std::to_string(figures.count),
                                   measureText(figures.lowest, kAsRecorded),
                                   timeText(figures.lowestAt),
                                   measureText(figures.highest, kAsRecorded),
                                   timeText(figures.highestAt),
                                   measureText(figures.mean, kComputed),
                                   measureText(figures.deviation, kComputed)};
    if (datum->secondsAbove) cells.push_back(durationText(*datum->secondsAbove));
    table.add(std::move(cells));
  }
  return table;
}

std::string narrowTable(const std::vector<const ShownDatum*>& data, const std::string& above) {
  std::string out;
  for (const ShownDatum* const datum : data) {
    const RecordFigures& figures = datum->figures;
    out += "  " + printableLine(titleOf(*datum)) + "\n";
    TextTable table({Align::Left, Align::Right, Align::Left}, 4);
    table.add({Told::tr("values"), std::to_string(figures.count)});
    if (figures.count != 0) {
      table.add({Told::tr("minimum"), measureText(figures.lowest, kAsRecorded),
                 Told::tr("at {} s", timeText(figures.lowestAt))});
      table.add({Told::tr("maximum"), measureText(figures.highest, kAsRecorded),
                 Told::tr("at {} s", timeText(figures.highestAt))});
      table.add({Told::tr("mean"), measureText(figures.mean, kComputed)});
    }
    if (figures.count > 1) table.add({Told::tr("deviation"), measureText(figures.deviation, kComputed)});
    if (datum->secondsAbove) table.add({above, durationText(*datum->secondsAbove)});
    out += table.text();
  }
  return out;
}

std::string figures(const ShownRecording& shown, const std::string& above, std::optional<std::size_t> width) {
  if (shown.span.length() < 0) return "\n" + Told::tr("Nothing between these times") + "\n";
  std::vector<const ShownDatum*> measures;
  for (const ShownDatum& datum : shown.data)
    if (datum.measure) measures.push_back(&datum);
  if (measures.empty()) return {};
  const TextTable wide = wideTable(measures, above);
  const std::string heading =
      "\n" + Told::tr("Figures from {} s to {} s", timeText(shown.span.from), timeText(shown.span.till)) +
      "\n";
  return heading + (width && wide.width() > *width ? narrowTable(measures, above) : wide.text());
}

std::string labelsOf(const ShownDatum& datum) {
  std::vector<HeldLabel> labels = datum.labels;
  std::ranges::stable_sort(labels, std::greater(), &HeldLabel::seconds);
  TextTable table({Align::Left, Align::Right, Align::Right, Align::Left}, 4);
  for (std::size_t i = 0; i < std::min(labels.size(), kMostLabels); ++i)
    table.add({labels[i].label, durationText(labels[i].seconds), timesText(labels[i].times),
               Told::tr("first at {} s", timeText(labels[i].first))});
  std::string out = "  " + printableLine(titleOf(datum)) + "\n" + table.text();
  if (labels.empty()) out += "    " + Told::tr("no value") + "\n";
  if (labels.size() > kMostLabels)
    out += "    " + Told::tr("and {} more: --json has them all", labels.size() - kMostLabels) + "\n";
  return out;
}

std::string labels(const ShownRecording& shown) {
  std::string out;
  for (const ShownDatum& datum : shown.data)
    if (!datum.measure || !datum.labels.empty()) out += labelsOf(datum);
  return out.empty() ? out : "\n" + Told::tr("How long values stood") + "\n" + out;
}

}  // namespace

std::string durationText(double seconds) {
  constexpr double kMinute = 60;
  constexpr double kHour = 3600;
  if (std::round(seconds * 1000) / 1000 < 2 * kMinute || seconds >= kWholeBelow)
    return timeText(seconds) + " s";
  const double rounded = std::round(seconds * 10) / 10;  // before it is parted: there is no 60th second
  const double hours = std::floor(rounded / kHour);
  const double minutes = std::floor((rounded - hours * kHour) / kMinute);
  const std::string rest = withDecimals(rounded - hours * kHour - minutes * kMinute, 1) + " s";
  return (hours > 0 ? fmt::format("{:.0f} h ", hours) : "") + fmt::format("{:.0f} min ", minutes) + rest;
}

std::string measureText(double value, int digits) {
  if (std::isnan(value)) return {};
  const double size = std::abs(value);
  if (size < kWholeBelow && size == std::floor(size)) return fmt::format("{:.0f}", value + 0.0);
  if (size >= kWholeBelow || size < 1e-4) return fmt::format("{:.{}g}", value, digits);
  return withDecimals(value, std::max(0, digits - 1 - static_cast<int>(std::floor(std::log10(size)))));
}

std::string showText(const ShownRecord& shown, std::optional<std::size_t> width) {
  const bool several = shown.recordings.size() != 1;
  const std::string above = shown.above ? Told::tr("above {}", exactNumberText(*shown.above)) : std::string();
  TextTable table = factTable();
  addFacts(table, shown);
  std::string out = several ? table.text() : "";
  for (const ShownRecording& each : shown.recordings) {
    if (several) {
      out += "\n" +
             Told::tr("--- Recording {} of {} ---", &each - shown.recordings.data() + 1,
                      shown.recordings.size()) +
             "\n\n";
      table = factTable();
    }
    addFacts(table, each);
    out += table.text() + marks(each) + figures(each, above, width) + labels(each);
  }
  return out;
}

}  // namespace tarnlog::record
