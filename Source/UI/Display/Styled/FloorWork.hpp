// Computes the outlines of floors in the background and shows them.
// Private header.
#pragma once

#include <map>
#include <memory>
#include <span>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// The outlines that a style adds to the models of floors. A model shows its outlines as soon as
/// they are computed, through the main queue. Main thread.
class FloorWork {
 public:
  FloorWork() = default;
  ~FloorWork() { clear(); }
  FloorWork(const FloorWork&) = delete;
  FloorWork& operator=(const FloorWork&) = delete;

  /// Outlines a floor in the colors of a theme. Computes the outlines only if the model is new or
  /// `roles`, one for each child of the model, have changed. Does nothing if the floor has no
  /// model.
  void set(const Map& map, const Venue& venue, std::span<const ShapeRole> roles,
           const MapTheme& theme);

  /// Returns whether the model of the floor shows its outlines, or is not to be outlined.
  bool isReady(const Map& map) const;

  /// Shows the outlines of the floor. If they are still missing, computes them at once or waits for
  /// the computation in the background.
  void finish(const Map& map);

  /// Removes the outlines that are still the style's own, and ends the work on others.
  void clear();

 private:
  class Outlining;

  Outlining* find(const Map& map) const;

  // By model. The tasks in the background have weak pointers to the work.
  std::map<std::weak_ptr<scene::Node>, std::shared_ptr<Outlining>, std::owner_less<>> floors_;
};

}  // namespace orivanta
