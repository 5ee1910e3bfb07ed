#include "apps/common/WriteTroubleText.h"

namespace tarnlog {

namespace {

/// A measurement file gets its answers in blocks; how many are missing is told when it is closed.
std::string counted(std::uint64_t count, const std::string& path) {
  const bool blocks = path.ends_with(".mf4");
  return std::to_string(count) + (blocks ? " block" : " row") + (count == 1 ? "" : "s");
}

}  // namespace

std::string textOf(const WriteTrouble& trouble) {
  switch (trouble.kind) {
    case WriteTrouble::Kind::Begun:
      return "write failed: " + trouble.path + ": " + trouble.why;
    case WriteTrouble::Kind::CutShort:
      return "file cut short: " + trouble.path + ": " + trouble.why;
    case WriteTrouble::Kind::NotSynced:
      return "not synced, a power cut may cost rows: " + trouble.path + ": " + trouble.why;
    case WriteTrouble::Kind::Ended:
      break;
  }
  const std::string inAll = trouble.lostInFile == trouble.lostRows
                                ? std::string()
                                : ", " + std::to_string(trouble.lostInFile) + " in all";
  return (trouble.closed ? "closed while writing failed: " : "writing goes on: ") + trouble.path + ": " +
         counted(trouble.lostRows, trouble.path) + " lost" + inAll;
}

}  // namespace tarnlog
