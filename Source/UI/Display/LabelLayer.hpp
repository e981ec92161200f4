// Labels with the names of the places on the current floor, as many as fit.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

class MapView;
class MapViewMarker2D;

/// Shows names of places as labels in a map view, see `labelName`. A label never overlaps another
/// label or a marker that is not hidden on collision, and is always entirely visible. Places with
/// an area have priority over places without one; otherwise the venue's order decides. Keeps a
/// reference to the map view. Main thread.
class ORIVANTA_API LabelLayer {
 public:
  /// `scale` is in pixels per point.
  LabelLayer(std::shared_ptr<MapView> mapView, double scale);

  /// Removes the labels.
  ~LabelLayer();
  LabelLayer(const LabelLayer&) = delete;
  LabelLayer& operator=(const LabelLayer&) = delete;

  /// Sets the scale in pixels per point. Redraws all labels if it changed.
  void setScale(double scale);

  /// Hides the labels of these places, which have separate marks.
  void setMarked(std::vector<std::shared_ptr<Location>> places);

  /// Sets the covered rectangles of the map view, in points. No label is shown there.
  void setCovered(std::vector<graphics::Rect> covered);

  /// Selects the labels for the current floor and camera pose. Call it before each frame; it
  /// returns immediately if nothing has changed. Each call draws only a few new labels, so that no
  /// frame waits for all of them. Returns whether more labels have to be drawn.
  bool arrange();

 private:
  struct Name {
    std::shared_ptr<Location> location;
    graphics::Vector3 position;
    std::shared_ptr<MapViewMarker2D> marker;  // null until it is first shown
    graphics::Size size;
    bool made = false;
    bool shown = false;
  };

  void reload();
  void clear();
  bool isMarked(const Location& location) const;
  bool isInView(const Name& name) const;
  bool hasRoom(const Name& name, std::vector<graphics::Rect>& taken) const;
  std::vector<graphics::Rect> takenRoom() const;
  void makeMarker(Name& name) const;
  void show(Name& name, bool shown);

  std::shared_ptr<MapView> mapView_;
  double scale_;
  std::vector<std::shared_ptr<Location>> marked_;
  std::vector<graphics::Rect> covered_;
  std::vector<Name> names_;             // of the floor, highest priority first
  std::shared_ptr<scene::Node> model_;  // of the floor of the names; null at first
  std::uint64_t arrangedChange_ = 0;    // the change count at the last `arrange`
};

}  // namespace orivanta
