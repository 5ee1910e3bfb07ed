#include "apps/tarnlog/RecordPicture.h"

#include <QSize>
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <system_error>

#include "apps/common/RecordChoice.h"
#include "apps/common/RecordErrors.h"
#include "platform/text/Told.h"
#include "records/RecordLoading.h"
#include "records/RecordNames.h"
#include "ui/common/Convert.h"
#include "ui/review/DataRows.h"
#include "ui/review/RecordAlignment.h"
#include "ui/review/ReviewPicture.h"

namespace tarnlog {

namespace {

constexpr int kLeast = 200;  ///< pixels
constexpr int kMost = 10000;

std::string baseName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::optional<int> pixels(std::string_view text) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  const bool good = read.ec == std::errc() && read.ptr == end && value >= kLeast && value <= kMost;
  return good ? std::optional(value) : std::nullopt;
}

QSize sizeOf(const std::string& text) {
  const std::size_t by = std::min(text.find('x'), text.size());
  const auto width = pixels(std::string_view(text).substr(0, by));
  const auto height = by == text.size() ? std::nullopt : pixels(std::string_view(text).substr(by + 1));
  if (!width || !height)
    throw BadInput(
        Told::tr("--size {}: expected WIDTHxHEIGHT in pixels, each from {} to {}", text, kLeast, kMost));
  return {*width, *height};
}

void refuseOutput(const PictureOptions& options) {
  const std::string& output = options.output;
  if (!output.ends_with(".svg") && !output.ends_with(".png"))
    throw BadInput(Told::tr("--picture {}: expected a name that ends with .svg or .png", output));
  std::error_code none;
  for (const std::string& record : options.records)
    if (std::filesystem::equivalent(output, record, none))
      throw BadInput(Told::tr("--picture {}: this is one of the records, expected another file", output));
}

void addRecord(ReviewScene& scene, const std::string& path) {
  LookedAtRecord record;
  record.name = baseName(path);
  record.table = inFile(path, [&] { return std::make_shared<const RecordTable>(loadRecord(path)); });
  if (!scene.records().empty())
    record.offset = offsetFor({RecordAlignment::On::Start, 0}, scene.records().front().recordingTable(),
                              record.recordingTable())
                        .value_or(0);
  scene.addRecord(std::move(record));
}

/// Those of the first record that are called so; where it has none, those of the others.
std::vector<CurvePlace> placesOf(const ReviewScene& scene, const std::string& name) {
  std::vector<CurvePlace> places;
  for (std::size_t r = 0; r < scene.records().size() && places.empty(); ++r) {
    const std::vector<TableGroup>& groups = scene.records()[r].recordingTable().groups;
    for (std::size_t g = 0; g < groups.size(); ++g)
      for (std::size_t c = 0; c < groups[g].columns.size(); ++c)
        if (isCalled(groups[g].columns[c].about, name)) places.push_back({r, g, c});
  }
  return places;
}

void showOnly(ReviewScene& scene, const std::vector<std::string>& names) {
  scene.setGraphs({});
  DataRows rows(scene);
  for (const std::string& name : names)
    for (const CurvePlace& place : placesOf(scene, name)) rows.add(place);
  scene.choose(std::nullopt);
}

void refuseUnknownData(const ReviewScene& scene, const PictureOptions& options) {
  std::vector<RecordHead> heads;
  for (const LookedAtRecord& record : scene.records()) heads.push_back(record.recordingTable().head);
  refuseUnknownData(heads, options.data,
                    options.records.size() == 1 ? options.records.front() : Told::tr("any of the records"));
}

std::string missingIn(const ReviewScene& scene) {
  std::string lines;
  for (const LookedAtRecord& record : scene.records())
    for (const std::string& each : record.table->missing) lines += record.table->path + ": " + each + "\n";
  return lines;
}

}  // namespace

std::string makePicture(const PictureOptions& options) {
  if (options.records.empty())
    throw BadInput(Told::tr("--picture: expected a record to make it of, before --data"));
  if (options.records.size() > ReviewScene::kMostRecords)
    throw BadInput(Told::tr("--picture: expected at most {} records", ReviewScene::kMostRecords));
  refuseOutput(options);
  refuseBadTimes(options.from, options.till);
  const QSize size = sizeOf(options.size);

  ReviewScene scene;
  for (const std::string& path : options.records) addRecord(scene, path);
  refuseUnknownData(scene, options);
  if (!options.data.empty()) showOnly(scene, options.data);
  scene.layOver(scene.records().size() > 1);
  const TimeSpan whole = scene.whole();
  refuseTimesOutside(whole.from, whole.till, options.from, options.till);
  scene.show({options.from.value_or(whole.from), options.till.value_or(whole.till)});
  writePicture(scene, toQString(options.output), size);
  return missingIn(scene);
}

}  // namespace tarnlog
