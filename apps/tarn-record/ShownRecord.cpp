#include "apps/tarn-record/ShownRecord.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "apps/common/BadInput.h"
#include "apps/common/RecordChoice.h"
#include "apps/common/RecordErrors.h"
#include "apps/tarn-record/QualityCommand.h"
#include "platform/text/Told.h"
#include "records/Mf4Layout.h"
#include "records/RecordLoading.h"
#include "records/RecordNames.h"
#include "records/TextHeader.h"

namespace tarnlog::record {

namespace {

std::string formatOf(const std::string& path) {
  const SystemReadableFile file(path);
  if (isMdf(file)) return "mf4";
  char beginning[kTextBeginning.size()];
  const std::size_t read = file.readAt(0, beginning, sizeof beginning);
  return std::string_view(beginning, read) == kTextBeginning ? "text" : "xml";
}

bool isWanted(const RecordColumn& column, const std::vector<std::string>& names) {
  return names.empty() ||
         std::ranges::any_of(names, [&](const std::string& name) { return isCalled(column, name); });
}

/// Labels of a datum with a unit stand for single numbers of it ("not available"); so do a few texts.
bool isMeasure(const TableColumn& column) {
  if (!column.isEnumeration() || !column.about.unit.empty()) return true;
  const std::int64_t numbers = column.numbers.extremes(0, column.numbers.size()).count;
  return column.about.labels.empty() && 2 * numbers > column.numbers.size();
}

ShownDatum shownDatum(const ShownRecording& shown, const TableGroup& group, const TableColumn& column,
                      const std::string& name, const std::optional<double>& above) {
  ShownDatum datum{name, &column, figuresOf(group, column, shown.span), isMeasure(column), {}, {}};
  if (above && datum.measure)
    datum.secondsAbove = secondsAbove(*shown.recording, group, column, *above, shown.span);
  const bool switches = column.onOff && datum.figures.lowest < datum.figures.highest;
  if (!datum.measure || switches) datum.labels = heldLabels(*shown.recording, group, column, shown.span);
  return datum;
}

ShownRecording shownRecording(const TableRecording& recording, const ShowOptions& options) {
  ShownRecording shown{.recording = &recording,
                       .span = {std::max(recording.begin(), options.from.value_or(recording.begin())),
                                std::min(recording.end(), options.till.value_or(recording.end()))},
                       .data = {},
                       .quality = {}};
  const std::vector<std::vector<std::string>> names = shortNames(recording.head);
  for (std::size_t g = 0; g < recording.groups.size(); ++g) {
    const TableGroup& group = recording.groups[g];
    for (std::size_t c = 0; c < group.columns.size(); ++c)
      if (isWanted(group.columns[c].about, options.data))
        shown.data.push_back(shownDatum(shown, group, group.columns[c], names[g][c], options.above));
  }
  return shown;
}

void refuseTimesOutsideAll(const RecordTable& table, const ShowOptions& options) {
  double begin = table.recordings.front().begin();
  double end = table.recordings.front().end();
  for (const TableRecording& recording : table.recordings) {
    begin = std::min(begin, recording.begin());
    end = std::max(end, recording.end());
  }
  refuseTimesOutside(begin, end, options.from, options.till);
}

}  // namespace

/// A gap that begins before the span may lead into it.
bool ShownRecording::shows(const TableMark& mark) const {
  const bool whole = span.from <= recording->begin() && span.till >= recording->end();
  const double till = mark.kind == RecordNote::Kind::Gap ? mark.till : mark.time;
  return whole || (mark.time <= span.till && till >= span.from);
}

bool ShownRecording::tellsAnswers() const {
  return std::ranges::any_of(recording->groups,
                             [](const TableGroup& group) { return !group.request.empty(); });
}

ShownRecord shownRecord(const ShowOptions& options) {
  refuseBadTimes(options.from, options.till);
  if (options.above && !std::isfinite(*options.above)) throw BadInput(Told::tr("--above: expected a number"));
  ShownRecord shown{
      .format = formatOf(options.input),
      .table = inFile(options.input,
                      [&] { return std::make_shared<const RecordTable>(loadRecord(options.input)); }),
      .recordings = {},
      .above = options.above};
  std::vector<RecordHead> heads;
  for (const TableRecording& recording : shown.table->recordings) heads.push_back(recording.head);
  refuseUnknownData(heads, options.data, options.input);
  if (!heads.empty()) refuseTimesOutsideAll(*shown.table, options);
  const FileQualities qualities = qualitiesOf(options.input);
  for (const TableRecording& recording : shown.table->recordings) {
    ShownRecording& each = shown.recordings.emplace_back(shownRecording(recording, options));
    // A file that is being written may have another recording by now.
    const std::size_t position = shown.recordings.size() - 1;
    if (position < qualities.recordings.size()) each.quality = qualities.recordings[position];
  }
  return shown;
}

}  // namespace tarnlog::record
