// The names of the places on the floor that is shown, as many as there is room for.
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

/// Shows names as markers of a map view. No name covers another one or a marker that does not give
/// way, and each is entirely in sight. Places with an area come before those without; otherwise the
/// order is the venue's. Keeps the map view. Main thread.
class ORIVANTA_API LabelLayer {
 public:
  /// `scale`: pixels per point.
  LabelLayer(std::shared_ptr<MapView> mapView, double scale);

  /// Takes the names away.
  ~LabelLayer();
  LabelLayer(const LabelLayer&) = delete;
  LabelLayer& operator=(const LabelLayer&) = delete;

  /// Draws all names anew if the scale is another one.
  void setScale(double scale);

  /// Leaves out the names of these places, which have marks of their own.
  void setMarked(std::vector<std::shared_ptr<Location>> places);

  /// The rectangles of the map view that something covers, in points. No name is shown there.
  void setCovered(std::vector<graphics::Rect> covered);

  /// Chooses the names for the floor that is shown and the camera as it is. Call it before each
  /// frame; it returns at once if nothing has changed. Draws a few new names in each call, so that
  /// no frame waits for all of them, and returns whether there are more to be drawn.
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
  std::vector<Name> names_;             // of the floor, the most important first
  std::shared_ptr<scene::Node> model_;  // of the floor that the names are on; null before the first
  std::uint64_t arrangedChange_ = 0;    // the count of changes when the names were last arranged
};

}  // namespace orivanta
