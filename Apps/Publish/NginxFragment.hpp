// Configuration of nginx for published venues: the common API root, with the venue in the query and
// the language in the request's header.
#pragma once

#include <string>
#include <vector>

#include "Apps/Server/CrossOrigin.hpp"

namespace orivanta::publish {

/// What the fragment needs to know about a venue.
struct PublishedVenue {
  std::string slug;
  std::vector<std::string> languages;  ///< folders besides "default"
};

/// Returns the part for the `http` block: it finds the folder of a request from its query and its
/// Accept-Language header. The first language of the header that the venue has is used; weights
/// other than 0 are not compared. It also finds out whether the origin of a web page is allowed.
std::string nginxMaps(const std::vector<PublishedVenue>& venues,
                      const std::vector<std::string>& listLanguages,
                      const server::CrossOrigin& crossOrigin);

/// Returns the part for the `server` block, whose root must be the folder. `path` is that of the
/// base URL, such as "/maps"; empty for the root of the host.
std::string nginxLocations(const std::vector<PublishedVenue>& venues, const std::string& path,
                           const server::CrossOrigin& crossOrigin);

/// Returns the part for a `location` block of the web page: types of files and the headers that
/// `serve` sends, except that browsers ask for every file whether it has changed.
std::string nginxPage();

}  // namespace orivanta::publish
