// Loads venue packages from folders, without a server.
#pragma once

#include <filesystem>
#include <memory>

#include "Source/Loading/VenueLoad.hpp"
#include "Source/Map.hpp"
#include "Source/Orivanta.hpp"
#include "Source/UI/AssetLoader.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

/// Returns the venue of a package, without models.
inline std::shared_ptr<Venue> loadPackage(const std::filesystem::path& package) {
  const auto venue = Venue::make(*RawData::parse(contentsOf(package / "venue.json")));
  CollectionDictionary collections = readPackage(package);
  const auto fill = [&](auto contents) { return fillVenue(venue, std::move(contents)); };
  const auto load = std::make_shared<VenueLoad>(false, fill, [](const auto&) {});
  load->receive(&CollectionDictionary::polygons, std::move(*collections.polygons));
  load->receive(&CollectionDictionary::locations, std::move(*collections.locations));
  load->receive(&CollectionDictionary::categories, std::move(*collections.categories));
  load->receive(&CollectionDictionary::maps, std::move(*collections.maps));
  load->receive(&CollectionDictionary::nodes, std::move(*collections.nodes));
  load->receive(&CollectionDictionary::vortices, std::move(*collections.vortices));
  return venue;
}

/// Reads the models of a package's floors that can be read.
inline void loadModels(const Venue& venue, const std::filesystem::path& package) {
  for (const auto& map : *venue.maps) {
    const auto model = package / map->_data["scene"]["obj"].stringValue();
    if (!std::filesystem::is_regular_file(model)) continue;
    if (auto node = AssetLoader().readModel(foundation::Url::fromFile(model)))
      map->mapObject = *node;
  }
}

}  // namespace orivanta::test
