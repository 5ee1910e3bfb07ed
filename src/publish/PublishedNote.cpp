#include "publish/PublishedNote.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

PublishedUntil placeOf(const nlohmann::json& place) {
  return {place.at("to"),    place.at("vehicle"),      place.at("data"),
          place.at("every"), place.at("acknowledged"), place.at("complete")};
}

}  // namespace

std::string PublishedNote::pathOf(std::string_view measurement) {
  const std::size_t dot = measurement.rfind('.');
  const std::size_t slash = measurement.rfind('/');
  const bool extension = dot != std::string_view::npos && (slash == std::string_view::npos || dot > slash);
  return std::string(measurement.substr(0, extension ? dot : measurement.size())) + ".published";
}

PublishedNote PublishedNote::parse(std::string_view text) {
  PublishedNote note;
  const bool whole = skipOnFailure([&] {
    const nlohmann::json object = nlohmann::json::parse(text);
    note.acquisition = object.at("acquisition");
    for (const nlohmann::json& place : object.at("published")) note.places.push_back(placeOf(place));
  });
  return whole ? note : PublishedNote{};
}

std::string PublishedNote::text() const {
  nlohmann::ordered_json object{{"acquisition", acquisition}, {"published", nlohmann::ordered_json::array()}};
  for (const PublishedUntil& each : places)
    object["published"].push_back({{"to", each.to},
                                   {"vehicle", each.vehicle},
                                   {"data", each.data},
                                   {"every", each.every},
                                   {"acknowledged", each.acknowledged},
                                   {"complete", each.complete}});
  return object.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

void PublishedNote::setAcquisition(std::string_view id) {
  if (acquisition != id) places.clear();
  acquisition = id;
}

PublishedUntil& PublishedNote::at(std::string_view to) {
  const auto known = std::ranges::find(places, to, &PublishedUntil::to);
  if (known != places.end()) return *known;
  places.push_back({std::string(to), {}, {}});
  return places.back();
}

}  // namespace tarnlog
