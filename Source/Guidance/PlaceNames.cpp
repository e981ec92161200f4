#include "Source/Guidance/PlaceNames.hpp"

#include <string>
#include <utility>

#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

using Locations = std::vector<std::shared_ptr<Location>>;

Locations locationsNamed(const Venue& venue, std::string_view text) {
  Locations exact;
  for (const auto& location : *venue.locations)
    if (location->name == text) exact.push_back(location);
  if (!exact.empty()) return exact;
  const std::string folded = caseFolded(text);
  Locations equal;
  Locations containing;
  for (const auto& location : *venue.locations) {
    const std::string name = caseFolded(location->name.value_or(""));
    if (name == folded) equal.push_back(location);
    if (name.find(folded) != std::string::npos) containing.push_back(location);
  }
  return equal.empty() ? containing : equal;
}

}  // namespace

NamedPlaces placesNamed(const Venue& venue, std::string_view text) {
  if (text.empty()) return {};
  for (const auto& location : *venue.locations)
    if (location->id == text) return {{location}, nullptr};
  for (const auto& node : *venue.nodes)
    if (node->id == text) return {{}, node};
  return {locationsNamed(venue, text), nullptr};
}

Locations locationsContaining(const Venue& venue, std::string_view text) {
  const std::string folded = caseFolded(text);
  Locations found;
  for (const auto& location : *venue.locations)
    if (caseFolded(location->name.value_or("")).find(folded) != std::string::npos ||
        location->id.value_or("").find(text) != std::string::npos)
      found.push_back(location);
  return found;
}

bool hasGeneratedName(const Location& place) {
  return place._data["nameGenerated"].bool_().value_or(false);
}

}  // namespace orivanta
