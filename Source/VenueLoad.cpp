#include "Source/VenueLoad.hpp"

#include <utility>

namespace orivanta {

VenueLoad::VenueLoad(bool accessible, std::function<void(std::shared_ptr<Venue>)> callback,
                     Guard guard)
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
             {[callback = std::move(callback),
               guard = std::move(guard)](CollectionDictionary& collections) {
               bool published = false;
               const auto publish = [&] { published = publishVenue(collections, callback); };
               if (guard)
                 guard(publish);
               else
                 publish();
               return published;
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
