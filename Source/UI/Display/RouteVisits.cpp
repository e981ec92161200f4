#include "Source/UI/Display/RouteVisits.hpp"

#include "Source/Map.hpp"
#include "Source/Node.hpp"

namespace orivanta {

std::vector<RouteVisit> visitsOf(const NodeList& path) {
  std::vector<RouteVisit> visits;
  for (std::size_t first = 0; first < path.size();) {
    std::size_t last = first;
    while (last + 1 < path.size() && path[last + 1]->map == path[first]->map) ++last;
    if (last > first || first == 0 || last + 1 == path.size())
      visits.push_back({path[first]->map, first, last});
    first = last + 1;
  }
  return visits;
}

}  // namespace orivanta
