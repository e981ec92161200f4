#include "Source/UI/Floors/FloorFiles.hpp"

#include <algorithm>

#include "Platform/Foundation/Fatal.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

FloorFiles FloorFiles::of(const Map& map) {
  const RawData scene = map._data["scene"];
  FloorFiles files{scene["obj"].stringValue(), scene["mtl"].stringValue(), {}};
  for (const RawData& image : scene["images"].arrayValue())
    files.images.push_back(image["url"].stringValue());
  return files;
}

std::vector<foundation::Url> FloorFiles::urls() const {
  std::vector<foundation::Url> urls{foundation::unwrap(foundation::Url::parse(model))};
  if (!materials.empty()) urls.push_back(foundation::unwrap(foundation::Url::parse(materials)));
  for (const std::string& image : images)
    urls.push_back(foundation::unwrap(foundation::Url::parse(image)));
  return urls;
}

std::size_t countFloorsWithPictures(const Venue& venue) {
  if (!venue.maps) return 0;
  return static_cast<std::size_t>(
      std::count_if(venue.maps->begin(), venue.maps->end(), [](const auto& map) {
        const FloorFiles files = FloorFiles::of(*map);
        return !files.model.empty() && !files.images.empty();
      }));
}

}  // namespace orivanta
