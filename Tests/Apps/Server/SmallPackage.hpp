// A small venue package for the server's tests.
#pragma once

#include <fmt/format.h>

#include <filesystem>

#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {

/// Five nodes "n1" to "n5", one location with names in two languages, and a map with its files. The
/// other collections are empty.
inline void writeSmallPackage(const TemporaryFolder& root, const std::filesystem::path& folder,
                              const std::string& slug) {
  root.write(folder / "venue.json",
             fmt::format(R"({{"id": "venue-{0}", "slug": "{0}", "name": "The {0}",)"
                         R"( "logo": "images/logo.png"}})",
                         slug));
  root.write(folder / "map.json", R"([{"id": "m", "scene": {"obj": "maps/floor.obj"}}])");
  root.write(folder / "location.json",
             R"([{"id": "l", "name": "Aufzug", "names": {"en": "Lift", "ja": "昇降機"}}])");
  root.write(folder / "node.json",
             R"([{"id": "n1"}, {"id": "n2"}, {"id": "n3"}, {"id": "n4"}, {"id": "n5"}])");
  for (const char* name : {"category.json", "vortex.json", "polygon.json"})
    root.write(folder / name, "[]");
  root.write(folder / "images/logo.png", "a picture");
  root.write(folder / "maps/floor.obj", "v 0 0 0\n" + std::string(2000, '#'));
}

}  // namespace orivanta::test
