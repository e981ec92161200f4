// A shopping mall of any size as JSON of the web API.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace orivanta::benchmarks {

/// The collections of a venue with about `nodeCount` nodes by resource name ("node", "location",
/// ...), each a JSON array; "venue" is one object. The slug is "mall".
std::map<std::string, std::string> mallJson(std::size_t nodeCount);

}  // namespace orivanta::benchmarks
