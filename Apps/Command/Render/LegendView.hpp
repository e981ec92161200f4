// A legend of the colors of places on an image of a venue.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::command {

/// What a color means.
struct LegendEntry {
  graphics::Color color;
  std::string meaning;
};

/// One line for each entry, on a light background in the upper left corner.
class LegendView : public view::View {
 public:
  /// `scale` is in pixels per point.
  LegendView(const std::vector<LegendEntry>& entries, double scale);

  void draw(view::Canvas& canvas) override;

 private:
  struct Line {
    graphics::Color color;
    std::shared_ptr<const graphics::Image> text;  // null if it has no visible characters
  };

  std::vector<Line> lines_;
};

}  // namespace orivanta::command
