// Prepares the places of a venue for searches.
// Private header.
#pragma once

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/SearchIndex.hpp"
#include "Source/Guidance/SearchedPlaces.hpp"

namespace orivanta {

/// Returns the index of places and connectors, see `PlaceSearch`. Returns an empty index if it is
/// canceled.
SearchIndex indexOf(const SearchedPlaces& searched, const KindWords& kinds,
                    const foundation::CancellationToken& token);

}  // namespace orivanta
