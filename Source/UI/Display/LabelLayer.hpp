// The names of places on the floor that is shown, as many as have room.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "Source/UI/MapView.hpp"

namespace orivanta {

/// Names are markers of the map view; those in one another's way, or in the way of other markers,
/// are not among them. Main thread.
class LabelLayer {
 public:
  LabelLayer(std::shared_ptr<MapView> mapView, double scale);

  /// The floor has changed, or the size of the view, or its scale.
  void reload(double scale);

  /// Names nothing for this place, which has a mark of its own; null for none.
  void setMarked(std::shared_ptr<Location> location);

  /// Chooses what has room as the camera stands now. Call it after the camera or other markers
  /// have moved, again before the next frame as long as it returns true: a few new names are drawn
  /// at a time, so that a frame does not wait for all of them.
  bool arrange();

  /// What lies over the map, in points of the view: no name goes under it.
  void setCovered(std::vector<graphics::Rect> covered) { covered_ = std::move(covered); }

 private:
  struct Name {
    std::shared_ptr<Location> location;
    std::shared_ptr<MapViewMarker2D> marker;  // null until it is first shown
    graphics::Size size;
    graphics::Vector3 position;
    bool made = false;
    bool shown = false;
  };

  bool hasRoom(const Name& name, std::vector<graphics::Rect>& taken) const;
  bool isInView(const Name& name) const;
  void makeMarker(Name& name) const;
  void show(Name& name, bool shown);

  std::shared_ptr<MapView> mapView_;
  std::shared_ptr<Location> marked_;
  double scale_;
  std::vector<graphics::Rect> covered_;
  std::vector<Name> names_;  // of the floor, the most important first
};

}  // namespace orivanta
