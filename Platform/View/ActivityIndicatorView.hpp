// A rotating wheel that indicates activity.
// Public header.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// The size and the color of an activity indicator.
enum class ActivityIndicatorStyle {
  whiteLarge,  ///< white, 37 x 37 points
  white,       ///< white, 20 x 20 points
  gray         ///< gray, 20 x 20 points
};

/// Shows a rotating wheel in the center of its bounds, over the background. While it is not
/// animating, it shows neither the wheel nor the background. Does not receive touches.
class ORIVANTA_API ActivityIndicatorView : public View {
 public:
  ActivityIndicatorView();  ///< with an empty frame, not animating

  ActivityIndicatorStyle style() const;  ///< `white` until set

  /// Sets the color and the frame's size: 37 x 37 points for `whiteLarge`, 20 x 20 points for the
  /// others.
  void setStyle(ActivityIndicatorStyle style);
  graphics::Color color() const;         ///< of the wheel
  void setColor(graphics::Color color);  ///< of the wheel

  void startAnimating();  ///< shows the wheel
  void stopAnimating();   ///< hides the wheel
  bool isAnimating() const override;
  void draw(Canvas& canvas) override;

 private:
  void setAnimating(bool animating);

  ActivityIndicatorStyle style_ = ActivityIndicatorStyle::white;
  graphics::Color color_ = graphics::colors::white;
  bool animating_ = false;
  std::shared_ptr<const graphics::Image> wheel_;  // null if it is out of date
};

}  // namespace orivanta::view
