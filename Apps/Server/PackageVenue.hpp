// Loads a venue from its package within the process, without a connection.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Apps/Server/VenuePackage.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::server {

/// Loads the records as a client does that prefers these languages, best first, in lower case. The
/// URLs of files begin with `origin`. The venue does not become the active one. Throws
/// `PackageError` if the venue or a collection cannot be loaded. Blocks.
std::shared_ptr<Venue> loadPackage(const std::shared_ptr<const VenuePackage>& package,
                                   const std::vector<std::string>& languages = {},
                                   const std::string& origin = "http://package.invalid");

}  // namespace orivanta::server
