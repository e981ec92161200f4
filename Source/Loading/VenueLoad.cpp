#include "Source/Loading/VenueLoad.hpp"

#include <fmt/format.h>

#include <iterator>
#include <new>
#include <stdexcept>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Source/NavigationGraph.hpp"

namespace orivanta {

namespace {

CollectionDictionary emptyCollections() {
  CollectionDictionary collections;
  collections.locations.emplace();
  collections.categories.emplace();
  collections.maps.emplace();
  collections.nodes.emplace();
  collections.vortices.emplace();
  collections.polygons.emplace();
  collections.navigationGraph =
      std::make_shared<NavigationGraph>(Collection<Node>(), Collection<Vortex>(), false);
  return collections;
}

}  // namespace

VenueLoad::VenueLoad(bool accessible, Publish publish,
                     std::function<void(std::shared_ptr<Venue>)> callback, Options options)
    : publish_(std::move(publish)),
      callback_(std::move(callback)),
      options_(std::move(options)),
      joins_{{linkCategoryParents, true},
             {linkLocationCategories, true},
             {linkPolygonMaps, true},
             {linkNodeMaps},
             {linkPolygonEntrances},
             {[accessible](CollectionDictionary& collections) {
               return linkVortexNodes(collections, accessible);
             }},
             {linkLocationNodes},
             {linkLocationPolygons},
             {[this](CollectionDictionary&) {
               published_ = publishVenue(collections_, publish_);
               return published_ != nullptr;
             }}} {
  collections_.budget = options_.budget;
  if (!options_.failed) empty_ = emptyCollections();
}

void VenueLoad::collectionReady() {
  try {
    if (options_.budget && options_.budget->isExceeded())
      throw foundation::BudgetExceeded(/*wasBefore=*/true);
    runJoins();
  } catch (const std::bad_alloc& reason) {
    endWithout(reason);
  } catch (const std::length_error& reason) {
    endWithout(reason);
  }
  if (const auto venue = std::exchange(published_, nullptr)) callback_(venue);
}

void VenueLoad::runJoins() {
  const bool gateOpen = collections_.locations && collections_.categories && collections_.maps &&
                        collections_.nodes && collections_.vortices;
  for (Join& join : joins_)
    if (gateOpen) {
      if (!std::exchange(join.ranEarly, false)) join.run(collections_);
    } else if (join.early && !join.ranEarly) {
      join.ranEarly = join.run(collections_);
    }
}

// Releases the results of the joins first, so that memory is available for the next steps.
void VenueLoad::endWithout(const std::exception& reason) {
  ended_ = true;
  published_ = nullptr;
  collections_ = CollectionDictionary();
  if (options_.failed) return options_.failed(foundation::memoryError(reason));
  collections_ = std::move(empty_);
  fmt::memory_buffer line;  // a short text is stored without allocation
  fmt::format_to(std::back_inserter(line), "the venue remains empty: {}", reason.what());
  foundation::diagnostic({line.data(), line.size()});
  published_ = publishVenue(collections_, publish_);
}

}  // namespace orivanta
