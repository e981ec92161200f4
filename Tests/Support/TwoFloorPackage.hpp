// The two-floor venue as a package on the disk.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::test {

inline void writePackage(const TemporaryFolder& root, const std::filesystem::path& folder,
                         const TwoFloorVenue& venue) {
  for (const auto& [name, json] : {std::pair("venue", venue.venue),
                                   {"map", venue.maps},
                                   {"node", venue.nodes},
                                   {"vortex", venue.vortices},
                                   {"category", venue.categories},
                                   {"polygon", venue.polygons},
                                   {"location", venue.locations}})
    root.write(folder / (std::string(name) + ".json"), json);
}

}  // namespace orivanta::test
