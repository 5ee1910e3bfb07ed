// ODX documents of any kind, bare or in a container: what is taken over from them is a vehicle description
// that opens. Several documents in one input each begin with their XML declaration.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/odx/OdxImport.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "platform/base/TarnError.h"

using namespace tarnlog;

namespace {

std::vector<host::PdxEntry> documentsIn(const std::string& text) {
  constexpr const char* kBegin = "<?xml";
  std::vector<host::PdxEntry> documents;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = text.find(kBegin, begin + 1);
    documents.push_back({std::to_string(documents.size()) + ".odx-d", text.substr(begin, end - begin)});
    begin = std::min(end, text.size());
  }
  return documents;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  host::OdxImport import;
  const bool imported = skipOnFailure([&] {
    import = host::importOdx(
        input.starts_with("PK") ? host::unpackPdx(input, "fuzz.pdx") : documentsIn(input), "fuzz");
  });
  if (imported) host::parseVehicleDescription(host::writeVehicleDescription(import.vehicle), "fuzz.json", {});
  return 0;
}
