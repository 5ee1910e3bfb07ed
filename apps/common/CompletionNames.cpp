#include "apps/common/CompletionNames.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>
#include <unordered_set>

#include "host/vehicle/Vehicle.h"
#include "platform/files/ReadableFile.h"
#include "platform/files/SystemFileSystem.h"
#include "records/Record.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

/// The parts of a name, from left to right, each with what stands behind it.
using Parts = std::vector<std::string>;

/// Shells hand over what was typed.
std::string withHome(const std::string& path) {
  const char* const home = std::getenv("HOME");
  return path.starts_with("~/") && home != nullptr ? home + path.substr(1) : path;
}

bool isFile(const std::string& path) {
  std::error_code none;
  return std::filesystem::is_regular_file(path, none);
}

bool isOffered(const host::RequestDescription& request) {
  return request.available && !request.frame.empty() &&
         std::all_of(request.data.begin(), request.data.end(),
                     [](const host::DataDescription& data) { return data.readable; });
}

std::vector<host::EcuDescription> ecusOf(const std::string& vehicle) {
  const std::string path = withHome(vehicle);
  if (!isFile(path)) return {};
  try {
    return host::readVehicleDescription(path, SystemFileSystem()).ecus;
  } catch (const std::exception&) {
    return {};
  }
}

/// The beginning of the name that ends with the first part which is not typed yet.
std::string firstOpen(const Parts& parts, std::size_t typed) {
  std::string name;
  for (const std::string& part : parts) {
    name += part;
    if (name.size() > typed) break;
  }
  return name;
}

std::string whole(const Parts& parts) {
  std::string name;
  for (const std::string& part : parts) name += part;
  return name;
}

std::vector<std::string> open(const std::vector<Parts>& names, const std::string& typed) {
  std::vector<std::string> found;
  std::unordered_set<std::string> seen;
  for (const Parts& parts : names) {
    if (!whole(parts).starts_with(typed)) continue;
    std::string name = firstOpen(parts, typed.size());
    if (seen.insert(name).second) found.push_back(std::move(name));
  }
  return found;
}

/// Where there is no choice, goes on to the next.
std::vector<std::string> nextParts(const std::vector<Parts>& names, std::string typed) {
  std::vector<std::string> found = open(names, typed);
  while (found.size() == 1 && found.front() != typed && found.front().ends_with('/')) {
    typed = found.front();
    found = open(names, typed);
  }
  return found;
}

}  // namespace

std::vector<std::string> datumNames(const std::string& vehicle, const std::string& typed,
                                    const std::vector<std::string>& endings) {
  std::vector<Parts> names;
  for (const host::EcuDescription& ecu : ecusOf(vehicle))
    for (const host::RequestDescription& request : ecu.requests)
      for (const host::DataDescription& data : request.data)
        for (const std::string& ending : endings)
          if (isOffered(request)) names.push_back({ecu.name + "/", request.name + "/", data.name + ending});
  return nextParts(names, typed);
}

std::vector<std::string> requestNames(const std::string& vehicle, const std::string& typed,
                                      const std::string& ending) {
  std::vector<Parts> names;
  for (const host::EcuDescription& ecu : ecusOf(vehicle))
    for (const host::RequestDescription& request : ecu.requests)
      if (isOffered(request)) names.push_back({ecu.name + "/", request.name + ending});
  return nextParts(names, typed);
}

std::vector<std::string> recordedNames(const std::string& record, const std::string& typed) {
  const std::string path = withHome(record);
  if (!isFile(path)) return {};
  std::vector<std::string> names;
  try {
    const SystemReadableFile file(path);
    const std::unique_ptr<RecordReader> reader = openRecord(file, path);
    for (const RecordHead& head : reader->recordings())
      for (const std::vector<std::string>& group : shortNames(head))
        names.insert(names.end(), group.begin(), group.end());
    if (typed.find('/') != std::string::npos)
      for (const RecordHead& head : reader->recordings())
        for (const RecordGroup& group : head.groups)
          for (const RecordColumn& column : group.columns) names.push_back(fullName(column));
  } catch (const std::exception&) {
    return {};
  }
  std::unordered_set<std::string> seen;
  std::erase_if(names, [&](const std::string& name) { return !seen.insert(name).second; });
  return names;
}

}  // namespace tarnlog
