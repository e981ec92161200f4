#include "Apps/Viewer/RecentPlaces.hpp"

#include <algorithm>

namespace orivanta::viewer {

void RecentPlaces::add(const std::shared_ptr<Location>& place) {
  if (!place) return;
  std::erase(places_, place);
  places_.insert(places_.begin(), place);
  places_.resize(std::min(places_.size(), most));
}

}  // namespace orivanta::viewer
