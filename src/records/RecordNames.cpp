#include "records/RecordNames.h"

#include <map>
#include <set>

namespace tarnlog {

namespace {

std::string below(const std::string& upper, const std::string& name) {
  return upper.empty() ? name : upper + "/" + name;
}

}  // namespace

std::string fullName(const RecordColumn& column) {
  return below(column.ecu, below(column.request, column.name));
}

bool isCalled(const RecordColumn& column, std::string_view name) {
  return name == column.name || name == below(column.request, column.name) || name == fullName(column);
}

std::vector<std::vector<std::string>> shortNames(const RecordHead& head) {
  std::map<std::string, int> counts;
  for (const RecordGroup& group : head.groups)
    for (const RecordColumn& column : group.columns) ++counts[column.name];
  std::map<std::string, int> wanted;
  std::set<std::string> given;
  const auto nameOf = [&](const RecordColumn& column) {
    const std::string shortest = counts[column.name] == 1 ? column.name : fullName(column);
    std::string name;
    do {  // a column may be called as another one with its number
      const int times = ++wanted[shortest];
      name = times == 1 ? shortest : shortest + " " + std::to_string(times);
    } while (!given.insert(name).second);
    return name;
  };
  std::vector<std::vector<std::string>> names;
  for (const RecordGroup& group : head.groups) {
    std::vector<std::string>& ofGroup = names.emplace_back();
    for (const RecordColumn& column : group.columns) ofGroup.push_back(nameOf(column));
  }
  return names;
}

}  // namespace tarnlog
