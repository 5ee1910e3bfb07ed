// ODX documents of any kind: what is taken over from them is a vehicle description that opens. Its seeds are
// the documents in tests/data.

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/odx/OdxImport.h"
#include "host/vehicle/DescriptionWriter.h"
#include "platform/base/TarnError.h"

using namespace tarnlog;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  host::OdxImport import;
  const std::string document(reinterpret_cast<const char*>(data), size);
  if (skipOnFailure([&] { import = host::importOdx({{ "fuzz.odx-d", document }}, "fuzz"); }))
    host::parseVehicleDescription(host::writeVehicleDescription(import.vehicle), "fuzz.json", {});
  return 0;
}
