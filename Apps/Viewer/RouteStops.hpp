// The stops of a route, as the user has chosen them.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Apps/Viewer/StopNames.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::viewer {

/// The start, the destination and the places in between. Each end may be missing. A value.
class RouteStops {
 public:
  using Places = std::vector<std::shared_ptr<Location>>;

  bool isEmpty() const { return !from_.isSet() && !to_.isSet(); }
  bool isComplete() const { return from_.isSet() && to_.isSet(); }
  bool hasStart() const { return from_.isSet(); }

  /// Returns the places in between, in order.
  const Places& between() const { return between_; }
  void setBetween(Places places) { between_ = std::move(places); }

  /// Replaces one end. A stop in between at the same place is removed.
  void setEnd(RouteEnd end, const std::shared_ptr<Location>& place);

  /// Removes an end if it is the place.
  void dropEnd(RouteEnd end, const std::shared_ptr<Location>& place);

  /// Makes the nearest of several places the destination, without stops in between.
  void setNearest(NearestChoice nearest);

  /// Makes the position of a traveler the start.
  void beginAt(const guidance::Stop& position) { from_ = {.position = position}; }

  /// Exchanges the ends, and reverses the stops in between. `found` replaces a destination that is
  /// the nearest of several places; may be null.
  void swapEnds(const std::shared_ptr<Location>& found);

  /// Whether a place can become a stop in between.
  bool canAdd(const std::shared_ptr<Location>& place) const;
  void add(const std::shared_ptr<Location>& place) { between_.push_back(place); }
  void remove(std::size_t index);

  /// Returns the stops in other records of the venue. `find` returns the other record of a place,
  /// or null if there is none. A position is left out. `found` is as in `swapEnds`.
  RouteStops movedTo(
      const std::function<std::shared_ptr<Location>(const std::shared_ptr<Location>&)>& find,
      const std::shared_ptr<Location>& found) const;

  /// Returns all stops in order. Both ends must be there.
  std::vector<guidance::Stop> list() const;

  /// Returns the names that are shown. `found` is as in `swapEnds`.
  StopNames names(const Venue& venue, const guidance::InterfaceTexts& texts,
                  const std::shared_ptr<Location>& found) const;

 private:
  // At most one member has a content.
  struct End {
    std::shared_ptr<Location> place{};
    std::optional<guidance::Stop> position{};  // of a traveler
    std::optional<NearestChoice> nearest{};    // only of a destination

    bool isSet() const { return place || position || nearest; }
  };

  End& at(RouteEnd end) { return end == RouteEnd::start ? from_ : to_; }
  static guidance::Stop stopAt(const End& end);
  static std::optional<std::string> nameOf(const End& end, const Venue& venue,
                                           const guidance::InterfaceTexts& texts);

  End from_;
  Places between_;
  End to_;
};

}  // namespace orivanta::viewer
