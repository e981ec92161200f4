// A turning wheel that says that something is going on.
#pragma once

#include "Platform/View/View.hpp"

namespace orivanta::view {

enum class ActivityIndicatorStyle { whiteLarge, white, gray };

/// In the middle of its bounds; not shown while it does not turn. Takes no touches.
class ORIVANTA_API ActivityIndicatorView : public View {
 public:
  ActivityIndicatorView();

  ActivityIndicatorStyle style() const { return style_; }
  void setStyle(ActivityIndicatorStyle style);  ///< sets size and colour
  graphics::Color color() const { return color_; }
  void setColor(graphics::Color color);

  void startAnimating();
  void stopAnimating();
  bool isAnimating() const override { return animating_; }
  void draw(Canvas& canvas) override;

 private:
  ActivityIndicatorStyle style_ = ActivityIndicatorStyle::white;
  graphics::Color color_ = graphics::colors::white;
  bool animating_ = false;
};

}  // namespace orivanta::view
