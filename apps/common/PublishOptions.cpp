#include "apps/common/PublishOptions.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"
#include "config/oTarnScope.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Told.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

bool isReadByOthers(const std::string& path) {
  using std::filesystem::perms;
  std::error_code error;
  const perms others =
      std::filesystem::status(path, error).permissions() & (perms::group_read | perms::others_read);
  return !error && others != perms::none;
}

}  // namespace

PublishSetup publishSetup(const PublishOptions& options,
                          const std::function<void(const std::string&)>& tell) {
  PublishSetup setup;
  setup.terms.to = parseBrokerAddress(options.to);
  setup.terms.vehicle = options.vehicle;
  for (const std::string& each : options.data)
    setup.terms.selection.data.push_back(parsePublishedDatum(each));
  setup.terms.selection.every = std::chrono::milliseconds(options.every.value_or(0));
  if (!options.access.empty()) {
    setup.access = readBrokerAccess(options.access, SystemFileSystem().readAll(options.access));
    if (!setup.access.password.empty() && isReadByOthers(options.access))
      tell(Told::tr("{}: others can read the password in it; \"chmod 600\" keeps them out", options.access));
  }
  if (!setup.access.password.empty() && !setup.terms.to.encrypted)
    tell(Told::tr("{}: the password goes over the network as it is; mqtts:// hides it",
                  setup.terms.to.text()));
  return setup;
}

PublishSetup livePublishSetup(const PublishOptions& options, const std::string& vehicle,
                              const std::function<void(const std::string&)>& tell) {
  PublishSetup setup = publishSetup(options, tell);
  setup.live = true;
  if (setup.terms.vehicle.empty()) setup.terms.vehicle = vehicle;
  return setup;
}

void checkPublished(const PublishSelection& selection, const oTarnParameters& parameters) {
  for (const PublishedDatum& datum : selection.data) {
    const auto called = [&](const oTarnScope& scope) {
      const RecordColumn column{.ecu = scope.EcuName,
                                .request = scope.RequestName,
                                .name = scope.DataName,
                                .unit = {},
                                .labels = {},
                                .range = {}};
      return isCalled(column, datum.name);
    };
    if (std::none_of(parameters.begin(), parameters.end(), called))
      throw BadInput(
          Told::tr("--publish-data {}: expected ECU/REQUEST/DATA of the configuration", datum.name));
  }
}

}  // namespace tarnlog
