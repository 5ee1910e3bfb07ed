#include "ui/init/OfferedRequests.h"

#include <cstddef>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kNoAddress = 0;
constexpr std::int32_t kBroadcast = 255;

bool isReadableRequest(const ferrox3::Request& request) {
  for (std::size_t i = 0; i < request.dataCount(); ++i)
    if (!request.data(i).readable()) return false;
  return true;
}

void addEcu(const ferrox3::Ecu& ecu, std::vector<OfferedEcu>& offered) {
  const std::int32_t address = ecu.address();
  if (address == kNoAddress || address == kBroadcast) return;
  offered.push_back({ecu.name(), address, {}});
  for (std::size_t i = 0; i < ecu.requestCount(); ++i)
    if (const ferrox3::Request& request = ecu.request(i); isReadableRequest(request))
      offered.back().requests.push_back(request.name());
}

}  // namespace

std::vector<OfferedEcu> offeredRequests(const ferrox3::Session& session) {
  std::vector<OfferedEcu> offered;
  for (std::size_t i = 0; i < session.ecuCount(); ++i)
    skipOnFailure([&] { addEcu(session.ecu(i), offered); });
  return offered;
}

}  // namespace tarnlog
