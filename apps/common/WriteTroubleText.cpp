#include "apps/common/WriteTroubleText.h"

#include <cstdint>

#include "platform/text/Told.h"

namespace tarnlog {

namespace {

/// A measurement file gets its answers in blocks; how many are missing is told when it is closed.
std::string lost(const WriteTrouble& trouble) {
  const std::uint64_t count = trouble.lostRows;
  if (trouble.path.ends_with(".mf4"))
    return count == 1 ? Told::tr("1 block lost") : Told::tr("{} blocks lost", count);
  return count == 1 ? Told::tr("1 row lost") : Told::tr("{} rows lost", count);
}

}  // namespace

std::string textOf(const WriteTrouble& trouble) {
  switch (trouble.kind) {
    case WriteTrouble::Kind::Begun:
      return Told::tr("write failed: {}: {}", trouble.path, trouble.why);
    case WriteTrouble::Kind::CutShort:
      return Told::tr("file cut short: {}: {}", trouble.path, trouble.why);
    case WriteTrouble::Kind::NotSynced:
      return Told::tr("not synced, a power cut may cost rows: {}: {}", trouble.path, trouble.why);
    case WriteTrouble::Kind::Ended:
      break;
  }
  const std::string inAll = trouble.lostInFile == trouble.lostRows
                                ? std::string()
                                : ", " + Told::tr("{} in all", trouble.lostInFile);
  return (trouble.closed ? Told::tr("closed while writing failed: {}: {}", trouble.path, lost(trouble))
                         : Told::tr("writing goes on: {}: {}", trouble.path, lost(trouble))) +
         inAll;
}

}  // namespace tarnlog
