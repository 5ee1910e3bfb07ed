#pragma once

#include "host/odx/OdxLayer.h"
#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Where the parameters of a request or response stand: at their own place, or behind the one before.
class OdxCursor {
 public:
  struct Place {
    std::size_t byte = 0;
    unsigned bit = 0;
  };
  explicit OdxCursor(std::size_t start = 0) : start_(start), next_(start) {}

  /// LeftOut when the parameter stands behind one of unknown length.
  Place placeOf(XmlElement parameter) const;
  /// The parameter takes this many bits from its place on; none: nobody knows.
  void advance(Place place, std::optional<unsigned> bits);
  /// Behind the last byte so far.
  std::size_t end() const { return end_; }

 private:
  std::size_t start_;
  std::optional<std::size_t> next_;
  std::size_t end_ = 0;
};

/// The bytes of a request whose parameters are all constant or have a default. LeftOut otherwise.
Frame readOdxFrame(const OdxLayer& layer, XmlElement request);

}  // namespace tarnlog::host
