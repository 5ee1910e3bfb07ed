#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "config/oTarnParameters.h"
#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog {

/// Makes a folder named on the command line when it is missing: whoever names it wants files there. Raises
/// BadInput when it cannot be made.
void makeFolder(const std::string& folder);
/// The same, and puts the files there.
void useFolder(oTarnParameters& parameters, const std::string& folder);

/// The name of a vehicle as the name of a folder: without what a file system on some disk refuses, never
/// empty or hidden, and not too long for one.
std::string folderNameOf(std::string_view vehicle);
/// The folder below `folder` that holds the files of one vehicle, made when missing; named after what the car
/// is identified by, where it tells that. Where it cannot be made,
/// `tell` is told why and the files go into `folder`: a recording is not to fail for it.
std::string folderOfVehicle(const std::string& folder, const host::VehicleDescription& vehicle,
                            const std::function<void(const std::string& why)>& tell);

}  // namespace tarnlog
