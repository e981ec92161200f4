// Itineraries of given paths, and real venues to guide through.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Source/Guidance/Itinerary.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Venue.hpp"

namespace orivanta::test {

/// A package of the folder of venues, joined; null if there is none.
std::shared_ptr<Venue> guidedVenue(std::string_view name);

/// Cuts a path where its edges change between walking and a connector. Edges that do not exist are
/// walked. The times are 1 s per meter and 30 s per ride.
guidance::Itinerary itineraryOf(const NodeList& path, const NavigationGraph& graph,
                                std::optional<double> unitsPerMeter,
                                std::shared_ptr<Location> from = nullptr,
                                std::shared_ptr<Location> to = nullptr);

}  // namespace orivanta::test
