// A venue package: a folder with the records of one venue and the files that they refer to.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/RecordCollection.hpp"

namespace orivanta::server {

/// The collections of a venue. Each is a file of the package, such as "map.json", and a path of the
/// web API, such as "/1/map".
constexpr std::array<std::string_view, 6> collectionNames = {"map",  "location", "category",
                                                             "node", "vortex",   "polygon"};

struct VenuePackage {
  std::filesystem::path source;  ///< the folder as given by the user
  std::filesystem::path folder;  ///< absolute, without symbolic links
  std::string version;           ///< see `packageVersion`
  std::uint64_t number = 0;      ///< increases with every package that this process reads
  std::string slug;
  std::string venue;                                                 ///< JSON text of venue.json
  std::array<RecordCollection, collectionNames.size()> collections;  ///< as in `collectionNames`

  /// The path under which the files are served, such as "/1/files/mall/".
  std::string filesPath() const;
  /// Returns null if there is no collection with this name.
  const RecordCollection* collection(std::string_view name) const;
};

/// Reads a folder that contains venue.json and the six collections. Records are not validated, so
/// clients may reject some of them. Throws `PackageError` if a file is missing or not JSON, if a
/// collection is not an array, or if the venue has no string "id" or "slug".
VenuePackage readPackage(const std::filesystem::path& folder);

/// Changes when venue.json or a collection is replaced, alone or with the whole folder. Empty if
/// one of the files is missing.
std::string packageVersion(const std::filesystem::path& folder);

/// Reads packages. A folder that is not a package itself is searched for packages, which are read
/// in the order of their names. Throws `PackageError` also if a folder contains none, or if a slug
/// occurs twice.
std::vector<VenuePackage> readPackages(const std::vector<std::filesystem::path>& folders);

}  // namespace orivanta::server
