#include "apps/tarn-record/LiveValues.h"

#include <map>

#include "acquisition/ValueReading.h"
#include "apps/common/TerminalText.h"
#include "platform/base/TarnError.h"

namespace tarnlog::record {

void LiveValues::begin(const SampleBeginning& beginning) {
  rows_.clear();
  firstRow_.clear();
  for (const SampleRequest& request : beginning.requests) {
    firstRow_.push_back(rows_.size());
    const std::string above = request.request->ecu().name() + "/" + request.request->name() + "/";
    for (const ferrox3::DataItem* const item : request.items)
      rows_.push_back({item,
                       printableLine(above + item->name()),
                       printableLine(item->name()),
                       printableLine(item->unit()),
                       {}});
  }
  firstRow_.push_back(rows_.size());
  nameRows();
}

void LiveValues::nameRows() {
  std::map<std::string, int> count;
  for (const Row& row : rows_) ++count[row.name];
  for (Row& row : rows_)
    if (count[row.name] > 1) row.name = row.path;
}

const std::vector<std::size_t>& LiveValues::take(std::size_t request) {
  changed_.clear();
  for (std::size_t i = firstRow_.at(request); i < firstRow_.at(request + 1); ++i) {
    std::string text(kUnreadable);
    skipOnFailure([&] { text = printableLine(rows_[i].item->valueText()); });
    if (text == rows_[i].text) continue;
    rows_[i].text = std::move(text);
    changed_.push_back(i);
  }
  return changed_;
}

}  // namespace tarnlog::record
