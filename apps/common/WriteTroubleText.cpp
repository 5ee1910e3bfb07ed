#include "apps/common/WriteTroubleText.h"

namespace tarnlog {

namespace {

std::string rows(std::uint64_t count) { return std::to_string(count) + (count == 1 ? " row" : " rows"); }

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
         rows(trouble.lostRows) + " lost" + inAll;
}

}  // namespace tarnlog
