#include "apps/common/RecordChoice.h"

#include <cmath>

#include "apps/common/BadInput.h"
#include "apps/common/NearestName.h"
#include "platform/text/Told.h"
#include "records/RecordNames.h"

namespace tarnlog {

void refuseBadTimes(const std::optional<double>& from, const std::optional<double>& till) {
  for (const std::optional<double>& time : {from, till})
    if (time && !std::isfinite(*time)) throw BadInput(Told::tr("--from and --till: expected seconds"));
  if (from && till && *from > *till)
    throw BadInput(Told::tr("--from is later than --till: nothing lies between them"));
}

void refuseTimesOutside(double begin, double end, const std::optional<double>& from,
                        const std::optional<double>& till) {
  if (from && *from > end)
    throw BadInput(Told::tr("--from {}: expected at most {}, where the record ends", *from, end));
  if (till && *till < begin)
    throw BadInput(Told::tr("--till {}: expected at least {}, where the record begins", *till, begin));
}

void refuseUnknownData(const std::vector<RecordHead>& recordings, const std::vector<std::string>& names,
                       const std::string& path) {
  std::vector<std::string> known;
  for (const std::string& name : names) {
    bool found = false;
    for (const RecordHead& head : recordings)
      for (const RecordGroup& group : head.groups)
        for (const RecordColumn& column : group.columns) {
          found = found || isCalled(column, name);
          known.push_back(column.name);
          known.push_back(fullName(column));
        }
    if (found) continue;
    const std::string nearest = nearestName(known, name);
    if (!nearest.empty())
      throw BadInput(Told::tr("--data {}: not in {}, did you mean {}?", name, path, nearest));
    throw BadInput(Told::tr("--data {}: not in {}", name, path) + nearNamesText(nearNames(known, name)));
  }
}

}  // namespace tarnlog
