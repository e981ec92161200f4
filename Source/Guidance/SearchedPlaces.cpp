#include "Source/Guidance/SearchedPlaces.hpp"

#include "Source/Venue.hpp"

namespace orivanta {

namespace {

template <class List>
List listOf(const std::optional<List>& list) {
  return list ? *list : List();
}

}  // namespace

SearchedPlaces::SearchedPlaces(const Venue& venue)
    : places(listOf(venue.locations)),
      connectors(listOf(venue.vortices)),
      categories(listOf(venue.categories)) {}

}  // namespace orivanta
