#include "publish/MeasurementAnswers.h"

#include <algorithm>
#include <cmath>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr double kHighestNumber = 9007199254740992;  // above it, numbers are not exact

bool hasAnswers(const Mf4Layout& layout) {
  return layout.head.utcNanoseconds && layout.dataGroups.size() == 1 &&
         std::ranges::any_of(layout.dataGroups[0].groups,
                             [](const Mf4Group& group) { return group.leading == 2; });
}

Mf4Layout layoutOf(const ReadableFile& file, const std::string& path) {
  const auto refuse = [&](const std::string& why) {
    throw TarnError(1, "MeasurementAnswers", path + ": " + why);
  };
  if (!isMdf(file)) refuse("no measurement file (MDF 4)");
  Mf4Layout layout;
  try {
    layout = readLayout(file);
  } catch (const TarnError& error) {
    refuse(error.description());
  }
  if (!hasAnswers(layout))
    refuse("its answers have no numbers: expected a measurement file of this recorder, as --mf4 writes it");
  return layout;
}

}  // namespace

MeasurementAnswers::MeasurementAnswers(const std::string& path)
    : file_(path), layout_(layoutOf(file_, path)), rows_(file_, layout_.dataGroups[0], kBlock) {}

void MeasurementAnswers::growTo(std::uint64_t till) {
  Mf4DataGroup& data = layout_.dataGroups[0];
  if (till < data.till || (till == data.till && rows_.damage().cutBytes == 0)) return;
  file_.look();
  data.till = till;
  rows_.goOn();
}

bool MeasurementAnswers::next() {
  while (rows_.next(row_)) {
    if (row_.group->role == Mf4Group::Role::Marks) {
      takeMark();
      if (kind_ != Kind::Answer) return true;
    } else if (row_.group->leading == 2) {
      kind_ = Kind::Answer;
      const auto number = row_.values[1].number;
      if (!(number > static_cast<double>(sequence_)) || number > kHighestNumber) {
        isDamaged_ = true;
        return false;
      }
      sequence_ = static_cast<std::uint64_t>(number);
      return true;
    }
  }
  return false;
}

bool MeasurementAnswers::isDamaged() const { return isDamaged_ || rows_.damage().foreignAt != 0; }

/// The columns of a mark are its kind, number and file.
void MeasurementAnswers::takeMark() {
  constexpr int kStart = 0;
  constexpr int kStop = 1;
  const auto kind = static_cast<int>(row_.values[0].number);
  kind_ = Kind::Answer;
  if (kind == kStart) {
    kind_ = Kind::Start;
    recording_ = row_.values[2].text;
  } else if (kind == kStop) {
    kind_ = Kind::Stop;
    recording_.clear();
  }
}

std::int64_t MeasurementAnswers::utcNanoseconds() const {
  return *layout_.head.utcNanoseconds + std::llround(row_.time * 1e6) * 1000;
}

std::span<const RecordValue> MeasurementAnswers::values() const {
  return std::span(row_.values).subspan(row_.group->leading);
}

std::string MeasurementAnswers::fact(std::string_view name) const {
  const auto found = std::ranges::find(layout_.head.facts, name, &std::pair<std::string, std::string>::first);
  return found == layout_.head.facts.end() ? std::string() : found->second;
}

}  // namespace tarnlog
