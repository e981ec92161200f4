#include "Source/VenueLoad.hpp"

#include <utility>

namespace orivanta {

VenueLoad::VenueLoad(bool accessible, std::function<void(std::shared_ptr<Venue>)> callback)
    : joins_{linkCategoryParents,
             linkLocationCategories,
             linkPolygonMaps,
             linkNodeMaps,
             linkPolygonEntrances,
             [accessible](CollectionDictionary& collections) {
               return linkVortexNodes(collections, accessible);
             },
             linkLocationNodes,
             linkLocationPolygons,
             [callback = std::move(callback)](CollectionDictionary& collections) {
               return publishVenue(collections, callback);
             }} {}

void VenueLoad::collectionReady() {
  const bool gateOpen = collections_.locations && collections_.categories && collections_.maps &&
                        collections_.nodes && collections_.vortices;
  if (!gateOpen) return;
  for (const auto& join : joins_) join(collections_);
}

}  // namespace orivanta
