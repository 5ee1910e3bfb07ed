#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "config/oTarnParameters.h"
#include "publish/PublishWorker.h"

namespace tarnlog {

/// What a user says about publishing.
struct PublishOptions {
  std::string to;  ///< the broker's address with the topic; empty: nothing is published
  std::string access;
  std::vector<std::string> data;
  std::optional<int> every;  ///< milliseconds
  std::string vehicle;       ///< as it is called in the topics
};

/// Raises BadInput and TarnErrors that say what cannot be used. `tell` is told what is unwise.
PublishSetup publishSetup(const PublishOptions& options, const std::function<void(const std::string&)>& tell);
/// Of a recorder; the vehicle is called so in the topics when the user does not say how.
PublishSetup livePublishSetup(const PublishOptions& options, const std::string& vehicle,
                              const std::function<void(const std::string&)>& tell);

/// Raises BadInput when the configuration records nothing that is called so.
void checkPublished(const PublishSelection& selection, const oTarnParameters& parameters);

}  // namespace tarnlog
