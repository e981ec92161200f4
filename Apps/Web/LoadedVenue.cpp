#include "Apps/Web/LoadedVenue.hpp"

#include <algorithm>
#include <utility>

#include "Source/Venue.hpp"

namespace orivanta::web {

LoadedVenue::LoadedVenue(std::shared_ptr<Venue> venue) : venue_(std::move(venue)) {
  int index = 0;
  for (const auto& node : *venue_->nodes) nodeIndices_.emplace(node.get(), index++);
}

int LoadedVenue::indexOf(const Node& node) const {
  const auto found = nodeIndices_.find(&node);
  return found == nodeIndices_.end() ? -1 : found->second;
}

int LoadedVenue::indexOf(const std::shared_ptr<Map>& floor) const {
  const auto found = std::find(venue_->maps->begin(), venue_->maps->end(), floor);
  return found == venue_->maps->end() ? -1 : static_cast<int>(found - venue_->maps->begin());
}

const guidance::Guide& LoadedVenue::guide() {
  if (!guide_) guide_ = guidance::Guide::make(*venue_);
  return *guide_;
}

const PlaceSearch& LoadedVenue::search() {
  if (!search_) search_.emplace(*venue_);
  return *search_;
}

}  // namespace orivanta::web
