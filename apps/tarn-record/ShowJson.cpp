#include "apps/tarn-record/ShowJson.h"

#include <fmt/format.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "apps/common/TerminalText.h"
#include "records/RecordMarks.h"

namespace tarnlog::record {

namespace {

using Json = nlohmann::ordered_json;

/// JSON has no numbers that are not finite; the library writes null for them.
Json figuresOf(const ShownDatum& datum) {
  const RecordColumn& about = datum.column->about;
  Json item{{"name", datum.name}, {"ecu", about.ecu}, {"request", about.request}, {"unit", about.unit}};
  item["values"] = datum.figures.count;
  if (datum.measure) {
    item["minimum"] = datum.figures.lowest;
    item["minimumAt"] = datum.figures.lowestAt;
    item["maximum"] = datum.figures.highest;
    item["maximumAt"] = datum.figures.highestAt;
    item["mean"] = datum.figures.mean;
    item["deviation"] = datum.figures.deviation;
  }
  if (datum.secondsAbove) item["secondsAbove"] = *datum.secondsAbove;
  for (const HeldLabel& label : datum.labels)
    item["labels"].push_back(
        {{"label", label.label}, {"seconds", label.seconds}, {"times", label.times}, {"first", label.first}});
  return item;
}

Json markOf(const TableMark& mark) {
  Json item{{"time", mark.time}, {"mark", markText({mark.kind, mark.time, mark.till, mark.number, {}})}};
  if (mark.kind == RecordNote::Kind::Gap) item["till"] = mark.till;
  if (mark.kind == RecordNote::Kind::ClockStep) item["seconds"] = mark.till;
  if (!mark.text.empty()) item["text"] = mark.text;
  return item;
}

Json recordingOf(const ShownRecording& shown) {
  const TableRecording& recording = *shown.recording;
  Json item = Json::object();
  if (recording.head.utcNanoseconds) item["t"] = *recording.head.utcNanoseconds;
  if (const auto& at = recording.head.local)
    item["local"] = fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", at->year, at->month, at->day, at->hour,
                                at->minute, at->second);
  item["begin"] = recording.begin();
  item["end"] = recording.end();
  item["rows"] = recording.rows();
  item["facts"] = Json::object();
  for (const auto& [name, text] : recording.head.facts)
    if (!text.empty() && name != kQualityFact && name != kConfigurationFact) item["facts"][name] = text;
  item["quality"] = shown.quality;
  item["marks"] = Json::array();
  for (const TableMark& mark : recording.marks)
    if (shown.shows(mark)) item["marks"].push_back(markOf(mark));
  item["from"] = shown.span.from;
  item["till"] = shown.span.till;
  item["data"] = Json::array();
  for (const ShownDatum& datum : shown.data) item["data"].push_back(figuresOf(datum));
  return item;
}

}  // namespace

std::string showJson(const ShownRecord& shown) {
  Json root{{"file", shown.table->path}, {"kind", shown.format}, {"bytes", shown.table->bytes}};
  root["missing"] = shown.table->missing;
  if (shown.above) root["above"] = *shown.above;
  root["recordings"] = Json::array();
  for (const ShownRecording& each : shown.recordings) root["recordings"].push_back(recordingOf(each));
  // The escapes are JSON's, too.
  return printableText(root.dump(2, ' ', false, Json::error_handler_t::replace)) + "\n";
}

}  // namespace tarnlog::record
