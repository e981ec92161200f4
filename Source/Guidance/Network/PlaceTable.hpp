// The places of a venue: their nodes in the network, their categories and their opening hours.
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/LocalTime.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"
#include "Source/Guidance/OpeningHours.hpp"

namespace orivanta::guidance {

/// Thread-safe; immutable except for the places that were closed at the last time. Owns the
/// records, but does not read them after its construction. The network must outlive it.
class PlaceTable {
 public:
  using Index = GuideNetwork::Index;

  struct Place {
    std::shared_ptr<Location> record;  ///< a location or a connector
    std::vector<Index> nodes;          ///< in the network, each once
    bool isRoom;                       ///< whether closing it closes its nodes
    std::optional<OpeningHours> hours;

    bool isClosedAt(const LocalTime& time) const {
      return hours && hours->at(time) == OpenState::closed;
    }
  };
  using Places = std::vector<const Place*>;

  PlaceTable(const Venue& venue, const GuideNetwork& network);

  const std::vector<Place>& places() const { return places_; }

  /// Returns null if the record is not one of the venue.
  const Place* find(const Location* record) const;

  /// Returns the places of several records, each once, in their order. Returns nothing if one of
  /// them is not a record of the venue.
  std::optional<Places> find(const std::vector<std::shared_ptr<Location>>& records) const;

  /// Returns the places of a category and of the categories below it, in the order of the venue.
  /// Returns nothing if the category is not one of the venue.
  std::optional<Places> placesOf(const Category* category) const;

  /// Returns the rooms and connectors that are closed at a time, in the order of the venue. Keeps
  /// the answer for the next call.
  std::shared_ptr<const Places> closedAt(const LocalTime& time) const;

  /// Returns the places that closures contain.
  Places closedPlaces(const Closures& closures) const;

  /// Returns the nodes that closures contain.
  std::vector<Index> closedNodes(const Closures& closures) const;

  /// Returns the arcs that closures and further closed places make unusable, in ascending order:
  /// those of a closed connector, and those into a closed node. The nodes inside a room are closed
  /// if all places that share them are; then one can leave the room but not enter it.
  std::vector<Index> closedArcs(const Closures& closures, Places closedPlaces = {}) const;

 private:
  struct Group {
    std::shared_ptr<Category> record;
    std::vector<const Category*> children;
    std::vector<std::size_t> places;
  };

  void addPlace(const std::shared_ptr<Location>& record, bool isConnector);
  void addCategories(const Venue& venue);
  std::unordered_set<Index> closedRoomNodes(const Places& closed) const;

  const GuideNetwork& network_;
  std::vector<Place> places_;
  std::unordered_map<const Location*, std::size_t> numbers_;
  std::unordered_map<const Category*, Group> groups_;
  std::unordered_multimap<std::string, std::size_t> placeIds_;
  std::unordered_multimap<std::string, Index> nodeIds_;
  std::unordered_map<const Location*, std::size_t> connectors_;  // their numbers in the network
  std::unordered_map<Index, std::size_t> sharers_;  // the number of rooms per inner node

  mutable std::mutex mutex_;
  mutable LocalTime closedTime_;                    // guarded by the mutex
  mutable std::shared_ptr<const Places> closedAt_;  // likewise; null at first
};

}  // namespace orivanta::guidance
