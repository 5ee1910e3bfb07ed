#include "apps/tarn-record/RepairCommand.h"

#include "apps/common/BadInput.h"
#include "apps/tarn-record/XmlRepair.h"
#include "platform/base/TarnError.h"

namespace tarnlog::record {

std::string repairFile(FileSystem& files, const std::string& path) {
  std::string bytes;
  try {
    bytes = files.readAll(path);
  } catch (const TarnError& error) {
    throw BadInput(error.description());
  }
  const auto repaired = repairXml(bytes);
  if (!repaired) throw BadInput(path + ": not an XML record file, expected the root element Tarnlog2000");
  if (repaired->whole) return path + ": whole, nothing to do\n";
  files.replace(path, repaired->text);
  return path + ": closed" +
         (repaired->dropped == 0
              ? std::string()
              : ", " + std::to_string(repaired->dropped) + " bytes of an unfinished element dropped") +
         "\n";
}

}  // namespace tarnlog::record
