// A turning wheel that says that something is going on.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

enum class ActivityIndicatorStyle { whiteLarge, white, gray };

/// In the middle of its bounds, over its background; neither is shown while it does not turn. Takes
/// no touches.
class ORIVANTA_API ActivityIndicatorView : public View {
 public:
  ActivityIndicatorView();

  ActivityIndicatorStyle style() const;

  /// Sets the frame's size, 37 x 37 points for `whiteLarge` and 20 x 20 for the others, and the
  /// color.
  void setStyle(ActivityIndicatorStyle style);
  graphics::Color color() const;
  void setColor(graphics::Color color);

  void startAnimating();
  void stopAnimating();
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
