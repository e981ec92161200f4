// The places and connectors of which a search index is made.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// What a search index is made of. Owns the records. A value.
struct ORIVANTA_API SearchedPlaces {
  SearchedPlaces() = default;  ///< creates empty lists

  /// Copies the lists of a venue, not the records. The lists are empty if the venue is not loaded.
  SearchedPlaces(const Venue& venue);  // NOLINT(google-explicit-constructor)

  std::vector<std::shared_ptr<Location>> places;      ///< the places
  std::vector<std::shared_ptr<Vortex>> connectors;    ///< elevators, stairs and others
  std::vector<std::shared_ptr<Category>> categories;  ///< those that connectors refer to
};

}  // namespace orivanta
