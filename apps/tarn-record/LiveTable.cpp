#include "apps/tarn-record/LiveTable.h"

#include <algorithm>

#include "apps/common/WrappedText.h"
#include "apps/tarn-record/ProgressLine.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

constexpr std::int32_t kSoonest = 100;   // ms
constexpr std::int32_t kLatest = 1000;   // ms; the line of progress tells the time
constexpr std::size_t kBetween = 4;      // columns of the terminal
constexpr std::size_t kWidestText = 24;  // a long text does not move all others to the edge

std::string blanks(std::size_t width, const std::string& text) {
  const std::size_t used = charactersOf(text);
  return used < width ? std::string(width - used, ' ') : std::string();
}

}  // namespace

void LiveTable::begin(const SampleBeginning& beginning) {
  values_.begin(beginning);
  widestText_ = 0;
  changed_ = true;
}

void LiveTable::answer(const SampleAnswer& answer) {
  if (!values_.take(answer.request).empty()) changed_ = true;
}

bool LiveTable::due() const {
  if (!drawn_) return changed_;
  const std::int32_t since = millisecondsBetween(drawnAt_, clock_.milliseconds());
  return since >= kLatest || (changed_ && since >= kSoonest);
}

LiveTable::Widths LiveTable::widths() {
  Widths widths;
  for (const LiveValues::Row& row : values_.rows()) {
    widths.name = std::max(widths.name, charactersOf(row.name));
    widths.unit = std::max(widths.unit, charactersOf(row.unit));
    widestText_ = std::max(widestText_, std::min(charactersOf(row.text), kWidestText));
  }
  widths.text = widestText_;
  return widths;
}

/// Names stand to the left, values to the right.
std::string LiveTable::cell(const LiveValues::Row& row, const Widths& widths) {
  return row.name + blanks(widths.name, row.name) + "  " + blanks(widths.text, row.text) + row.text + " " +
         row.unit;
}

std::vector<std::string> LiveTable::draw(std::size_t width, std::size_t height) {
  changed_ = false;
  drawn_ = true;
  drawnAt_ = clock_.milliseconds();
  const auto& rows = values_.rows();
  if (rows.empty() || height == 0) return {};
  const Widths each = widths();
  const std::size_t columns = std::max<std::size_t>(1, (width + kBetween) / (each.all() + kBetween));
  const std::size_t needed = (rows.size() + columns - 1) / columns;
  const bool all = needed <= height;
  const std::size_t lines = all ? needed : height - 1;
  const std::size_t shown = std::min(rows.size(), lines * columns);
  std::vector<std::string> out(lines);
  for (std::size_t i = 0; i < shown; ++i) {
    std::string& line = out[i % lines];
    const std::size_t from = (i / lines) * (each.all() + kBetween);
    line += blanks(from, line) + cell(rows[i], each);
  }
  if (!all) out.push_back(Told::tr("... and {} more", rows.size() - shown));
  for (std::string& line : out) line = firstCharacters(line, width);
  return out;
}

}  // namespace tarnlog::record
