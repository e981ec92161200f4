// The stops of a route, and the routes that are planned between them.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Viewer/GuideWorker.hpp"
#include "Apps/Viewer/GuidedRoute.hpp"
#include "Apps/Viewer/LatestRequest.hpp"
#include "Apps/Viewer/RouteRest.hpp"
#include "Apps/Viewer/RouteStops.hpp"
#include "Apps/Viewer/StopNames.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/LocalTime.hpp"

namespace orivanta::viewer {

/// Plans a route in the background when it has a start and a destination, and again after each
/// change of the stops, the profile or the closures. Opening hours count at the time of the clock.
/// Main thread only.
///
/// A traveler who is on the way stays on the chosen route as long as nothing on the rest of it is
/// closed. Otherwise a new route begins at the traveler's position, which becomes the start: stops
/// that were visited are no longer part of the route. It remains the start after the walk.
class RouteSession {
 public:
  using Clock = std::function<guidance::LocalTime()>;

  RouteSession(std::shared_ptr<Venue> venue, const guidance::InterfaceTexts& texts, Clock clock);

  std::function<void()> changed;  ///< the former plan is gone; a new one may have been started

  /// The user has asked for a route. Called after `changed`, but not for a change of the closures.
  std::function<void()> requested;
  std::function<void()> planned;  ///< there is a new plan

  // After a change of the closures, one of these is called instead of `planned`.

  /// The chosen route remains; its alternatives may be others. May be called within `setClosures`.
  std::function<void()> confirmed;

  /// There is another route, or none any more. `closed` is the name of what is closed on the former
  /// one, or empty if it is not known or has no name.
  std::function<void(const std::string& closed)> rerouted;

  /// Makes a place the start, and drops the destination if it is the same place.
  void departFrom(const std::shared_ptr<Location>& place);

  /// Makes a place the destination, and drops the start if it is the same place.
  void goTo(const std::shared_ptr<Location>& place);

  /// Leads to the nearest of several places, without stops in between. If `from` is null, the start
  /// remains.
  void goToNearest(const std::shared_ptr<Location>& from, NearestChoice nearest);

  /// As above, from the position of a traveler.
  void goToNearest(const guidance::Position& from, NearestChoice nearest);

  /// Replaces one end of the route. A stop in between at the same place is removed.
  void setEnd(RouteEnd end, const std::shared_ptr<Location>& place);

  /// Makes a place the missing end. Returns false if there is no route yet or no end is missing.
  bool fillMissingEnd(const std::shared_ptr<Location>& place);

  /// Exchanges the start and the destination, and reverses the stops in between.
  void swapEnds();
  void addStop(const std::shared_ptr<Location>& place);  ///< does nothing if not `canAddStop`
  void removeStop(std::size_t index);                    ///< of the stops in between
  void setProfile(std::size_t index);                    ///< of `profileChoices`

  /// Plans again around what is closed. The current plan stays until then. `progress` is where a
  /// traveler is on the chosen route, if on the way.
  void setClosures(const guidance::Closures& closures,
                   const std::optional<RouteProgress>& progress = std::nullopt);

  /// The traveler is no longer on the way. If a route from the last progress is being planned, one
  /// from the start is planned instead.
  void walkEnded();
  void clear();  ///< removes all stops

  /// Replaces all stops and the profile.
  void restore(RouteStops stops, std::size_t profile);

  /// Chooses one of the plan's routes. The stops in between are then in the order of its visits.
  void choose(std::size_t index);

  const RouteStops& stops() const { return stops_; }
  bool hasStops() const { return !stops_.isEmpty(); }
  bool isComplete() const { return stops_.isComplete(); }
  bool hasStart() const { return stops_.hasStart(); }

  /// Whether a place can become a stop in between.
  bool canAddStop(const std::shared_ptr<Location>& place) const { return stops_.canAdd(place); }
  std::size_t profile() const { return profile_; }
  const guidance::Closures& closures() const { return closures_; }

  /// Returns the names of the stops, with that of the chosen route's destination, if any.
  StopNames names() const;

  /// Whether a route is being planned.
  bool isPlanning() const { return guide_.isBusy(); }

  /// The latest plan; without routes and without a problem if there is none.
  const GuidedPlan& plan() const { return plan_; }

  /// Returns the chosen route, or null.
  const GuidedRoute* route() const;
  std::size_t chosen() const { return chosen_; }

  /// Returns the time of arrival on the chosen route. Nothing if the route has no scale or length.
  std::optional<guidance::LocalTime> arrival() const;

 private:
  /// What is planned at the moment.
  enum class Purpose {
    plan,        // what the user has asked for
    update,      // the same, after a change of the closures
    replaceRest  // another way to the stops that are left
  };

  void request();
  void planAgain();
  void start(Purpose purpose, const RouteStops& stops);

  void take(GuidedPlan plan);
  void takeUpdate(GuidedPlan plan);
  void takeNewRest(GuidedPlan plan);
  void adopt(GuidedPlan plan);
  void keepOpenRoutes();
  bool isOpen(const RouteRest& rest) const;
  RouteStops stopsOfRest() const;

  const std::shared_ptr<Venue> venue_;
  const guidance::InterfaceTexts texts_;
  const Clock clock_;
  LatestRequest<GuideWorker> guide_;
  RouteStops stops_;
  std::size_t profile_ = 0;
  guidance::Closures closures_;
  GuidedPlan plan_;
  std::size_t chosen_ = 0;  // of the plan's routes
  Purpose purpose_ = Purpose::plan;
  std::optional<RouteRest> rest_;  // the last one that was closed
};

}  // namespace orivanta::viewer
