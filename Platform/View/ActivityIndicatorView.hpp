// A turning wheel that says that something is going on.
// Public header.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// Size and color of an activity indicator.
enum class ActivityIndicatorStyle {
  whiteLarge,  ///< white, 37 x 37 points
  white,       ///< white, 20 x 20 points
  gray         ///< gray, 20 x 20 points
};

/// A turning wheel in the middle of its bounds, over its background. Neither is shown while it does
/// not turn. Takes no touches.
class ORIVANTA_API ActivityIndicatorView : public View {
 public:
  ActivityIndicatorView();  ///< without a size; does not turn

  ActivityIndicatorStyle style() const;  ///< `white` until set

  /// Sets the frame's size, 37 x 37 points for `whiteLarge` and 20 x 20 for the others, and the
  /// color.
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
  std::shared_ptr<const graphics::Image> wheel_;  // null when it is out of date
};

}  // namespace orivanta::view
