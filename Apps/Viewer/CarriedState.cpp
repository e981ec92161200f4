#include "Apps/Viewer/CarriedState.hpp"

#include <algorithm>

#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

// Returns the record with the identifier of another one, or null.
template <class Record>
std::shared_ptr<Record> sameIn(const std::optional<std::vector<std::shared_ptr<Record>>>& records,
                               const std::shared_ptr<Record>& other) {
  if (!records || !other) return nullptr;
  const auto found = std::find_if(records->begin(), records->end(),
                                  [&](const auto& record) { return record->id == other->id; });
  return found == records->end() ? nullptr : *found;
}

}  // namespace

std::shared_ptr<Map> sameFloor(const Venue& venue, const std::shared_ptr<Map>& floor) {
  return sameIn(venue.maps, floor);
}

void carryStops(const VenueView& from, VenueView& to) {
  const auto find = [&](const std::shared_ptr<Location>& place) {
    return sameIn(to.venue()->locations, place);
  };
  to.setClosures(from.session().closures());
  const RouteSession& session = from.session();
  const auto found = session.route() ? session.route()->to() : nullptr;
  if (session.hasStops())
    to.session().restore(session.stops().movedTo(find, found), session.profile());
  if (const auto place = find(from.selected())) to.select(place);
}

void carryCamera(VenueView& from, VenueView& to) {
  const std::size_t chosen = from.session().chosen();
  if (chosen > 0 && chosen < to.session().plan().routes.size())
    to.panels().route->routeChosen(chosen);
  const auto floor = sameFloor(*to.venue(), from.mapView().currentMap());
  if (!floor || !floor->mapObject) return;
  to.showFloor(floor);
  const CameraPose target = from.camera().target();
  to.camera().setPose(from.camera().pose());
  if (from.camera().isGliding()) to.camera().glideTo(target);
}

}  // namespace orivanta::viewer
