// Shows the attribution of a venue on an image of it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::command {

enum class Corner { lowerLeft, lowerRight, upperLeft, upperRight };

/// Small text on a background in a corner of the image. It does not overlap the map view's
/// logo.
class AttributionView : public view::View {
 public:
  /// For images of this size in points, with `scale` pixels per point, in the colors of a theme. A
  /// null theme is that of plain images, which are light.
  AttributionView(std::string_view text, Corner corner, graphics::Size picture, double scale,
                  const MapTheme* theme = nullptr);

  /// Whether the whole text is shown. A text that would cover more than a third of the image's
  /// height is cut.
  bool isWhole() const { return isWhole_; }

  void draw(view::Canvas& canvas) override;

 private:
  graphics::Color ground_;
  std::shared_ptr<const graphics::Image> text_;  // null if the text has no visible characters
  bool isWhole_ = true;
};

}  // namespace orivanta::command
