#include "Source/Loading/ActiveVenue.hpp"

#include <mutex>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

std::shared_ptr<Venue>& activeVenue = *new std::shared_ptr<Venue>;

namespace {

// Never destroyed: loads may be under way when the process ends.
std::mutex& activeVenueMutex() {
  static auto& mutex = *new std::mutex;
  return mutex;
}

void exchangeContents(Venue& venue, VenueContents& contents) {
  std::swap(venue.locations, contents.locations);
  std::swap(venue.categories, contents.categories);
  std::swap(venue.maps, contents.maps);
  std::swap(venue.nodes, contents.nodes);
  std::swap(venue.vortices, contents.vortices);
  std::swap(venue.polygons, contents.polygons);
  std::swap(venue.polygonDictionary, contents.polygonDictionary);
  std::swap(venue.navigationGraph, contents.navigationGraph);
}

}  // namespace

void makeActive(const std::shared_ptr<Venue>& venue) {
  auto former = std::make_shared<VenueContents>();
  std::shared_ptr<Venue> formerVenue = venue;
  {
    const std::lock_guard lock(activeVenueMutex());
    if (activeVenue) exchangeContents(*activeVenue, *former);
    activeVenue.swap(formerVenue);
  }
  foundation::SerialQueue::make()->async([former = std::move(former)] {});
}

std::shared_ptr<Venue> fillActiveVenue(VenueContents contents) {
  const std::lock_guard lock(activeVenueMutex());
  exchangeContents(foundation::unwrap(activeVenue), contents);
  return activeVenue;
}

std::shared_ptr<NavigationGraph> activeGraph() {
  const std::lock_guard lock(activeVenueMutex());
  return foundation::unwrap(activeVenue).navigationGraph;
}

}  // namespace orivanta
