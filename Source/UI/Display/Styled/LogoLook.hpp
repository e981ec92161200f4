// The colors of the logo on styled maps.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/ImageView.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Replaces the white and the dark blue of the logo by the colors of a theme. An image that others
/// have set in the meantime is not restored. Main thread.
class LogoLook {
 public:
  /// Restores the logo of the previous call first. `logo` may be null.
  void apply(const std::shared_ptr<view::ImageView>& logo, const MapTheme& theme);

  void restore();

 private:
  std::weak_ptr<view::ImageView> logo_;
  std::shared_ptr<const graphics::Image> former_;
  std::shared_ptr<const graphics::Image> own_;
};

}  // namespace orivanta
