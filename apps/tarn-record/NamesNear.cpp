#include "apps/tarn-record/NamesNear.h"

#include <cstddef>

#include "apps/common/NearestName.h"
#include "platform/base/TarnError.h"

namespace tarnlog::record {

namespace {

std::vector<std::string> names(const ferrox3::Session& vehicle, bool ofData) {
  std::vector<std::string> all;
  for (std::size_t e = 0; e < vehicle.ecuCount(); ++e) {
    const ferrox3::Ecu& ecu = vehicle.ecu(e);
    for (std::size_t r = 0; r < ecu.requestCount(); ++r) {
      const ferrox3::Request& request = ecu.request(r);
      const std::string path = ecu.name() + "/" + request.name();
      if (!ofData) all.push_back(path);
      for (std::size_t d = 0; ofData && d < request.dataCount(); ++d)
        all.push_back(path + "/" + request.data(d).name());
    }
  }
  return all;
}

}  // namespace

std::vector<std::string> namesNear(const Lack& lack, const ferrox3::Session& vehicle) {
  const bool data = lack.kind == Lack::Kind::Data;
  if (!data && lack.kind != Lack::Kind::ScenarioRequest) return {};
  std::vector<std::string> near;
  skipOnFailure([&] { near = nearNames(names(vehicle, data), lack.path); });
  return near;
}

}  // namespace tarnlog::record
