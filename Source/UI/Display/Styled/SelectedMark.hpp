// The pin and the name of the selected place on a styled map.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// A place on the current floor that is selected.
struct SelectedPlace {
  std::shared_ptr<Location> place;  ///< a location or a connector; never null
  std::string name;                 ///< may have line breaks; may be empty
  PlaceKind kind = PlaceKind::other;
  graphics::Vector3 position{0.0F};  ///< in the scene

  friend bool operator==(const SelectedPlace&, const SelectedPlace&) = default;
};

/// Draws a pin with the symbol of a kind and a name beside it. The name is on the side that it has
/// as long as it is in sight there. Used within a transaction.
class SelectedMark {
 public:
  /// Draws the images again, for another place, theme or scale.
  void clear();

  /// Arranges the mark with the tip of the pin at a point of the view, and keeps the name off the
  /// panels if possible. `scale`: pixels per point.
  void arrange(const SelectedPlace& place, graphics::Point tip, graphics::Size view,
               std::span<const graphics::Rect> panels, const MapTheme& theme, double scale);

  /// Removes the mark from the following frames.
  void hide() { rects_.clear(); }

  /// The parts of the view that the mark covers, in points. Empty if hidden.
  const std::vector<graphics::Rect>& rects() const { return rects_; }

  void draw(view::Canvas& canvas) const;

 private:
  void drawImages(const SelectedPlace& place, const MapTheme& theme, double scale);
  graphics::Rect nameAt(std::size_t side, graphics::Point tip) const;

  double scale_ = 0;  // of the images; 0 if they must be drawn
  std::shared_ptr<const graphics::Image> pin_;
  std::shared_ptr<const graphics::Image> symbol_;
  std::shared_ptr<const graphics::Image> name_;  // null if there is no name
  std::size_t side_ = 0;
  graphics::Rect pinRect_;
  graphics::Rect symbolRect_;
  std::vector<graphics::Rect> rects_;  // of the pin and the name
};

}  // namespace orivanta
