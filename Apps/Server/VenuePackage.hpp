// A venue package: a folder with one venue's records and the files that they name.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/RecordCollection.hpp"

namespace orivanta::server {

/// The collections of a venue. Each is a file of its package, such as "map.json", and a path of the
/// web API, such as "/1/map".
constexpr std::array<std::string_view, 6> collectionNames = {"map",  "location", "category",
                                                             "node", "vortex",   "polygon"};

struct VenuePackage {
  std::filesystem::path source;  ///< the folder as it was named
  std::filesystem::path folder;  ///< absolute, without symbolic links
  std::string version;           ///< see `packageVersion`
  std::uint64_t number = 0;      ///< grows with every package that this process reads
  std::string slug;
  std::string venue;                                                 ///< JSON text of venue.json
  std::array<RecordCollection, collectionNames.size()> collections;  ///< in the order of the names

  /// Where the files are served, such as "/1/files/mall/".
  std::string filesPath() const;
  /// Null when there is no collection of this name.
  const RecordCollection* collection(std::string_view name) const;
};

/// Reads a folder that holds venue.json and the six collections. Records are taken as they are,
/// also those that a client will not accept. Throws `PackageError` when a file is missing or is no
/// JSON, when a collection is no array, or when the venue has no text "id" and "slug".
VenuePackage readPackage(const std::filesystem::path& folder);

/// Changes when venue.json or a collection of the folder is replaced, alone or with the folder.
/// Empty when one of the files is missing.
std::string packageVersion(const std::filesystem::path& folder);

/// Reads packages, and all packages inside folders that are none themselves, in the order of their
/// names. Throws `PackageError` also for a folder without any and for a slug that occurs twice.
std::vector<VenuePackage> readPackages(const std::vector<std::filesystem::path>& folders);

}  // namespace orivanta::server
