// The colors in which a style draws the shapes of floors.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Sets the display colors of shapes, except those of highlighted ones, whose materials have the
/// color of the highlight. Main thread.
class FloorFills {
 public:
  /// Colors the shapes of a floor, which must have a model. `roles` has one element for each shape.
  void set(const Map& map, std::span<const ShapeRole> roles, const MapTheme& theme);

  /// Whether the shapes of the floor's model are colored.
  bool contains(const Map& map) const;

  void setHighlighted(scene::Node& shape, bool isHighlighted);

  /// Removes the colors that are still the style's own.
  void clear();

 private:
  struct Fill {
    std::optional<graphics::Color> color;  // nothing if the shape has not been colored
    bool isHighlighted = false;
  };

  std::map<std::weak_ptr<scene::Node>, Fill, std::owner_less<>> fills_;
};

}  // namespace orivanta
