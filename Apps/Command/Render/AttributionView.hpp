// The attribution of a venue on a picture of it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::command {

enum class Corner { lowerLeft, lowerRight, upperLeft, upperRight };

/// Small text on a light ground, in a corner of the picture and clear of the map view's logo.
class AttributionView : public view::View {
 public:
  /// For pictures of this size in points, with `scale` pixels per point.
  AttributionView(std::string_view text, Corner corner, graphics::Size picture, double scale);

  /// Whether the whole text is shown. A text that would take more than a third of the picture is
  /// cut.
  bool isWhole() const { return isWhole_; }

  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<const graphics::Image> text_;  // null for a text without ink
  bool isWhole_ = true;
};

}  // namespace orivanta::command
