#include "Source/VenueLoad.hpp"

#include <utility>

namespace orivanta {

VenueLoad::VenueLoad(bool accessible, std::function<void(std::shared_ptr<Venue>)> callback)
    : joins_{{linkCategoryParents, true},
             {linkLocationCategories, true},
             {linkPolygonMaps, true},
             {linkNodeMaps},
             {linkPolygonEntrances},
             {[accessible](CollectionDictionary& collections) {
               return linkVortexNodes(collections, accessible);
             }},
             {linkLocationNodes},
             {linkLocationPolygons},
             {[callback = std::move(callback)](CollectionDictionary& collections) {
               return publishVenue(collections, callback);
             }}} {}

void VenueLoad::collectionReady() {
  const bool gateOpen = collections_.locations && collections_.categories && collections_.maps &&
                        collections_.nodes && collections_.vortices;
  for (Join& join : joins_)
    if (gateOpen) {
      if (!std::exchange(join.ranEarly, false)) join.run(collections_);
    } else if (join.early && !join.ranEarly) {
      join.ranEarly = join.run(collections_);
    }
}

}  // namespace orivanta
