// A legend of the colors of places on an image of a venue.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::command {

/// What a color means.
struct LegendEntry {
  graphics::Color color;
  std::string meaning;
};

/// One line for each entry, on a background in the upper left corner.
class LegendView : public view::View {
 public:
  /// `scale` is in pixels per point. The colors are those of the theme, or light without one.
  LegendView(const std::vector<LegendEntry>& entries, double scale, const MapTheme* theme);

  void draw(view::Canvas& canvas) override;

 private:
  struct Line {
    graphics::Color color;
    std::shared_ptr<const graphics::Image> text;  // null if it has no visible characters
  };

  graphics::Color ground_;
  std::vector<Line> lines_;
};

}  // namespace orivanta::command
