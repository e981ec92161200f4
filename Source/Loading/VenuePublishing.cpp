#include "Source/Loading/VenuePublishing.hpp"

#include <mutex>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/ActiveVenue.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

// Never destroyed: loads may still be running when the process ends.
std::mutex& publishingMutex() {
  static auto& mutex = *new std::mutex;
  return mutex;
}

// The caller must hold the mutex.
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

void releaseInBackground(std::shared_ptr<VenueContents> contents) {
  foundation::SerialQueue::make()->async([contents = std::move(contents)] {});
}

}  // namespace

void makeActive(const std::shared_ptr<Venue>& venue) {
  auto former = std::make_shared<VenueContents>();
  std::shared_ptr<Venue> formerVenue = venue;
  {
    const std::lock_guard lock(publishingMutex());
    if (activeVenue) exchangeContents(*activeVenue, *former);
    activeVenue.swap(formerVenue);
  }
  releaseInBackground(std::move(former));
}

std::shared_ptr<Venue> fillActiveVenue(VenueContents contents) {
  const std::lock_guard lock(publishingMutex());
  exchangeContents(foundation::unwrap(activeVenue), contents);
  return activeVenue;
}

void clearVenue(const std::shared_ptr<Venue>& venue) {
  auto former = std::make_shared<VenueContents>();
  {
    const std::lock_guard lock(publishingMutex());
    exchangeContents(*venue, *former);
  }
  releaseInBackground(std::move(former));
}

std::shared_ptr<Venue> fillVenue(const std::shared_ptr<Venue>& venue, VenueContents contents) {
  const std::lock_guard lock(publishingMutex());
  exchangeContents(*venue, contents);
  return venue;
}

std::shared_ptr<NavigationGraph> activeGraph() {
  const std::lock_guard lock(publishingMutex());
  return foundation::unwrap(activeVenue).navigationGraph;
}

std::shared_ptr<NavigationGraph> graphOf(const Venue& venue) {
  const std::lock_guard lock(publishingMutex());
  return venue.navigationGraph;
}

}  // namespace orivanta
