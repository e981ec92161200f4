// Packages from folders, with or without the models of their floors.
#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "Source/Loading/VenueLoad.hpp"
#include "Source/Map.hpp"
#include "Source/UI/AssetLoader.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

/// Loads the records of a package. The active venue stays the same.
inline std::shared_ptr<Venue> loadRecords(const std::filesystem::path& package) {
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

/// Reads those models of a package's floors that can be read.
inline void loadModels(const Venue& venue, const std::filesystem::path& package) {
  for (const auto& map : *venue.maps) {
    const auto model = package / map->_data["scene"]["obj"].stringValue();
    if (!std::filesystem::is_regular_file(model)) continue;
    if (auto node = AssetLoader().readModel(foundation::Url::fromFile(model)))
      map->mapObject = *node;
  }
}

/// Loads the records and the models of a package. The active venue stays the same.
inline std::shared_ptr<Venue> loadPackage(const std::filesystem::path& package) {
  auto venue = loadRecords(package);
  loadModels(*venue, package);
  return venue;
}

}  // namespace orivanta::test
