#include "Tests/Support/Venues.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::test {

namespace fs = std::filesystem;

std::optional<fs::path> venuesFolder() {
  const char* configured = std::getenv("ORIVANTA_VENUES");
  fs::path folder = configured != nullptr ? configured : ORIVANTA_VENUES;
  if (!fs::is_directory(folder)) return std::nullopt;
  return folder;
}

std::vector<std::string> venueNames() {
  std::vector<std::string> names;
  if (const auto folder = venuesFolder())
    for (const auto& entry : fs::directory_iterator(*folder))
      if (fs::exists(entry.path() / "venue.json")) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

CollectionDictionary readPackage(const fs::path& package) {
  CollectionDictionary collections;
  collections.locations = recordsIn<Location>(contentsOf(package / "location.json"));
  collections.categories = recordsIn<Category>(contentsOf(package / "category.json"));
  collections.maps = recordsIn<Map>(contentsOf(package / "map.json"));
  collections.nodes = recordsIn<Node>(contentsOf(package / "node.json"));
  collections.vortices = recordsIn<Vortex>(contentsOf(package / "vortex.json"));
  collections.polygons = recordsIn<Polygon>(contentsOf(package / "polygon.json"));
  return collections;
}

}  // namespace orivanta::test
