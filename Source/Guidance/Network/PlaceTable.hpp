// The places of a venue: their nodes in the network, their categories and their opening hours.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/LocalTime.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"
#include "Source/Guidance/OpeningHours.hpp"

namespace orivanta::guidance {

/// Immutable; any thread. Owns the records. The network must outlive it.
class PlaceTable {
 public:
  using Index = GuideNetwork::Index;

  struct Place {
    std::shared_ptr<Location> record;  ///< a location or a connector
    std::vector<Index> nodes;          ///< in the network, each once
    bool isRoom;                       ///< whether closing it closes its nodes
    std::optional<OpeningHours> hours;
  };

  PlaceTable(const Venue& venue, const GuideNetwork& network);

  const std::vector<Place>& places() const { return places_; }

  /// Returns null if the record is not one of the venue.
  const Place* find(const Location* record) const;

  /// Returns the places of a category and of the categories below it, in the order of the venue.
  /// Returns nothing if the category is not one of the venue.
  std::optional<std::vector<const Place*>> placesOf(const Category* category) const;

  /// Returns the closures and, if there is a time, the places that are closed then.
  Closures closedAt(const Closures& closures, const std::optional<LocalTime>& at) const;

  /// Returns the arcs that closures make unusable: those of a closed connector and those into a
  /// closed node. The nodes of a room are closed if all places that share them are.
  std::vector<Index> closedArcs(const Closures& closures) const;

 private:
  struct Group {
    std::shared_ptr<Category> record;
    std::vector<const Category*> children;
    std::vector<std::size_t> places;
  };

  void addPlace(const std::shared_ptr<Location>& record, bool isConnector);
  void addCategories(const Venue& venue);

  const GuideNetwork& network_;
  std::vector<Place> places_;
  std::unordered_map<const Location*, std::size_t> numbers_;
  std::unordered_map<const Category*, Group> groups_;
  // By identifier; the texts belong to the records.
  std::unordered_map<std::string_view, std::size_t> placeIds_;
  std::unordered_map<std::string_view, Index> nodeIds_;
  std::unordered_map<std::string_view, std::size_t> connectorIds_;
  std::unordered_map<Index, std::size_t> sharers_;  // the number of rooms per inner node
};

}  // namespace orivanta::guidance
