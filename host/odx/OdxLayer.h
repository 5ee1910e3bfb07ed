#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/odx/OdxLibrary.h"

namespace tarnlog::host {

/// An ECU variant with what it inherits from its base variant, functional groups, protocols and shared data:
/// what is defined nearer (in this order) replaces what is defined farther under the same short name.
class OdxLayer {
 public:
  OdxLayer(const OdxLibrary& library, XmlElement variant);

  XmlElement variant() const { return chain_.front(); }
  /// DIAG-SERVICE elements.
  const std::vector<XmlElement>& services() const { return services_; }
  /// SINGLE-ECU-JOB elements.
  const std::vector<XmlElement>& jobs() const { return jobs_; }
  /// The data object that a parameter of a request or response refers to, by identifier or short name; none
  /// when it cannot be found.
  XmlElement dataObjectOf(XmlElement parameter) const;
  /// The value of a communication parameter, of the nearest layer that gives one.
  std::optional<std::int64_t> communicationParameter(const std::string& name) const;
  const OdxLibrary& library() const { return library_; }

 private:
  using Names = std::set<std::string>;
  void collect(XmlElement layer, Names blocked, Names& known);
  void collectParents(XmlElement layer, const Names& blocked, Names& known);
  void collectDataObjects();

  const OdxLibrary& library_;
  std::vector<XmlElement> chain_;  ///< the variant first
  std::vector<XmlElement> services_;
  std::vector<XmlElement> jobs_;
  std::unordered_map<std::string, XmlElement> dataObjects_;  ///< by short name
};

/// A whole number in decimal or, with 0x, hexadecimal; none when it is anything else or needs more than 32
/// bits.
std::optional<std::int64_t> odxInteger(const std::string& text);

}  // namespace tarnlog::host
