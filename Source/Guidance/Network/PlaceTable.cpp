#include "Source/Guidance/Network/PlaceTable.hpp"

#include <algorithm>
#include <set>
#include <unordered_set>
#include <utility>

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
    if (places_[i].record->id) placeIds_.try_emplace(*places_[i].record->id, i);
  for (std::size_t i = 0; i < network.connectors().size(); ++i)
    if (const auto& record = *network.connectors()[i].record; record.id)
      connectorIds_.try_emplace(*record.id, i);
  for (Index node = 0; node < network.size(); ++node)
    if (network.node(node)->id) nodeIds_.try_emplace(*network.node(node)->id, node);
}

void PlaceTable::addPlace(const std::shared_ptr<Location>& record, bool isConnector) {
  if (!numbers_.try_emplace(record.get(), places_.size()).second) return;
  Place place{record, {}, !isConnector && hasEntrances(*record), std::nullopt};
  for (const auto& node : record->nodes)
    if (const auto index = network_.find(node.get())) place.nodes.push_back(*index);
  std::sort(place.nodes.begin(), place.nodes.end());
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

std::optional<std::vector<const PlaceTable::Place*>> PlaceTable::placesOf(
    const Category* category) const {
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
  std::vector<const Place*> places;
  for (const std::size_t place : found) places.push_back(&places_[place]);
  return places;
}

Closures PlaceTable::closedAt(const Closures& closures, const std::optional<LocalTime>& at) const {
  if (!at) return closures;
  std::vector<std::string> closed;
  for (const Place& place : places_)
    if (place.hours && place.record->id && place.hours->at(*at) == OpenState::closed)
      closed.push_back(*place.record->id);
  if (closed.empty()) return closures;
  closed.insert(closed.end(), closures.identifiers().begin(), closures.identifiers().end());
  return Closures(std::move(closed));
}

std::vector<PlaceTable::Index> PlaceTable::closedArcs(const Closures& closures) const {
  std::vector<Index> nodes;
  std::vector<Index> arcs;
  std::unordered_map<Index, std::size_t> closedSharers;
  for (const std::string& identifier : closures.identifiers()) {
    if (const auto node = nodeIds_.find(identifier); node != nodeIds_.end())
      nodes.push_back(node->second);
    if (const auto entry = connectorIds_.find(identifier); entry != connectorIds_.end()) {
      const auto& rides = network_.connectors()[entry->second].arcs;
      arcs.insert(arcs.end(), rides.begin(), rides.end());
    }
    const auto place = placeIds_.find(identifier);
    if (place == placeIds_.end() || !places_[place->second].isRoom) continue;
    for (const Index node : places_[place->second].nodes) {
      const auto sharers = sharers_.find(node);
      if (sharers != sharers_.end() && ++closedSharers[node] == sharers->second)
        nodes.push_back(node);
    }
  }
  for (const Index node : nodes) {
    const auto into = network_.arcsInto(node);
    arcs.insert(arcs.end(), into.begin(), into.end());
  }
  return arcs;
}

}  // namespace orivanta::guidance
