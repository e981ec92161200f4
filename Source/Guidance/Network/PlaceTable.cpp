#include "Source/Guidance/Network/PlaceTable.hpp"

#include <algorithm>
#include <set>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Network/Rooms.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta::guidance {

PlaceTable::PlaceTable(const Venue& venue, const GuideNetwork& network) : network_(network) {
  if (venue.locations)
    for (const auto& location : *venue.locations) addPlace(location, false);
  if (venue.vortices)
    for (const auto& vortex : *venue.vortices) addPlace(vortex, true);
  addCategories(venue);
  for (std::size_t i = 0; i < places_.size(); ++i)
    if (places_[i].record->id) placeIds_.emplace(*places_[i].record->id, i);
  for (std::size_t i = 0; i < network.connectors().size(); ++i)
    connectors_.try_emplace(network.connectors()[i].record.get(), i);
  for (Index node = 0; node < network.size(); ++node)
    if (network.node(node)->id) nodeIds_.emplace(*network.node(node)->id, node);
}

void PlaceTable::addPlace(const std::shared_ptr<Location>& record, bool isConnector) {
  if (!numbers_.try_emplace(record.get(), places_.size()).second) return;
  Place place{record, {}, !isConnector && hasEntrances(*record), std::nullopt};
  for (const auto& node : record->nodes)
    if (const auto index = network_.find(node.get())) place.nodes.push_back(*index);
  foundation::sort(place.nodes.begin(), place.nodes.end());
  place.nodes.erase(std::unique(place.nodes.begin(), place.nodes.end()), place.nodes.end());
  if (const auto hours = record->_data["hours"].string()) place.hours = OpeningHours::parse(*hours);
  if (place.isRoom)
    for (const Index node : place.nodes)
      if (network_.vertex(node).room != GuideNetwork::none) ++sharers_[node];
  places_.push_back(std::move(place));
}

void PlaceTable::addCategories(const Venue& venue) {
  if (!venue.categories) return;
  for (const auto& category : *venue.categories) {
    Group& group = groups_[category.get()];
    group.record = category;
    for (const auto& child : category->children)
      if (const auto record = child.lock()) group.children.push_back(record.get());
  }
  for (std::size_t i = 0; i < places_.size(); ++i)
    for (const auto& category : places_[i].record->categories) {
      const auto group = groups_.find(category.get());
      if (group != groups_.end()) group->second.places.push_back(i);
    }
}

const PlaceTable::Place* PlaceTable::find(const Location* record) const {
  const auto entry = numbers_.find(record);
  return entry == numbers_.end() ? nullptr : &places_[entry->second];
}

std::optional<PlaceTable::Places> PlaceTable::find(
    const std::vector<std::shared_ptr<Location>>& records) const {
  Places places;
  std::unordered_set<const Place*> found;
  for (const auto& record : records) {
    const Place* place = find(record.get());
    if (place == nullptr) return std::nullopt;
    if (found.insert(place).second) places.push_back(place);
  }
  return places;
}

std::optional<PlaceTable::Places> PlaceTable::placesOf(const Category* category) const {
  if (groups_.find(category) == groups_.end()) return std::nullopt;
  std::unordered_set<const Category*> seen{category};
  std::vector<const Category*> waiting{category};
  std::set<std::size_t> found;
  while (!waiting.empty()) {
    const auto group = groups_.find(waiting.back());
    waiting.pop_back();
    if (group == groups_.end()) continue;
    found.insert(group->second.places.begin(), group->second.places.end());
    for (const Category* child : group->second.children)
      if (seen.insert(child).second) waiting.push_back(child);
  }
  Places places;
  for (const std::size_t place : found) places.push_back(&places_[place]);
  return places;
}

std::shared_ptr<const PlaceTable::Places> PlaceTable::closedAt(const LocalTime& time) const {
  {
    const std::lock_guard lock(mutex_);
    if (closedAt_ && closedTime_ == time) return closedAt_;
  }
  auto closed = std::make_shared<Places>();
  for (const Place& place : places_)
    if ((place.isRoom || connectors_.count(place.record.get()) != 0) && place.isClosedAt(time))
      closed->push_back(&place);
  const std::lock_guard lock(mutex_);
  closedTime_ = time;
  closedAt_ = closed;
  return closed;
}

PlaceTable::Places PlaceTable::closedPlaces(const Closures& closures) const {
  Places places;
  for (const std::string& identifier : closures.identifiers()) {
    const auto [first, end] = placeIds_.equal_range(identifier);
    for (auto place = first; place != end; ++place) places.push_back(&places_[place->second]);
  }
  return places;
}

std::vector<PlaceTable::Index> PlaceTable::closedNodes(const Closures& closures) const {
  std::vector<Index> nodes;
  for (const std::string& identifier : closures.identifiers()) {
    const auto [first, end] = nodeIds_.equal_range(identifier);
    for (auto node = first; node != end; ++node) nodes.push_back(node->second);
  }
  return nodes;
}

std::vector<PlaceTable::Index> PlaceTable::closedArcs(const Closures& closures,
                                                      Places closed) const {
  const Places named = closedPlaces(closures);
  closed.insert(closed.end(), named.begin(), named.end());
  foundation::sort(closed.begin(), closed.end());
  closed.erase(std::unique(closed.begin(), closed.end()), closed.end());
  std::vector<Index> arcs;
  for (const Place* place : closed)
    if (const auto entry = connectors_.find(place->record.get()); entry != connectors_.end()) {
      const auto& rides = network_.connectors()[entry->second].arcs;
      arcs.insert(arcs.end(), rides.begin(), rides.end());
    }
  for (const Index node : closedNodes(closures)) {
    const auto into = network_.arcsInto(node);
    arcs.insert(arcs.end(), into.begin(), into.end());
  }
  const auto inside = closedRoomNodes(closed);
  for (const Index node : inside)
    for (const Index arc : network_.arcsInto(node)) {
      const Index origin = network_.arcs()[arc].origin;
      const bool staysInside =
          inside.count(origin) != 0 && network_.vertex(origin).room == network_.vertex(node).room;
      if (!staysInside) arcs.push_back(arc);
    }
  foundation::sort(arcs.begin(), arcs.end());
  arcs.erase(std::unique(arcs.begin(), arcs.end()), arcs.end());
  return arcs;
}

std::unordered_set<PlaceTable::Index> PlaceTable::closedRoomNodes(const Places& closed) const {
  std::unordered_map<Index, std::size_t> closedSharers;
  std::unordered_set<Index> nodes;
  for (const Place* place : closed) {
    if (!place->isRoom) continue;
    for (const Index node : place->nodes) {
      const auto sharers = sharers_.find(node);
      if (sharers != sharers_.end() && ++closedSharers[node] == sharers->second) nodes.insert(node);
    }
  }
  return nodes;
}

}  // namespace orivanta::guidance
