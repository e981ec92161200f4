// Shows a picture.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// How a picture is fitted to a frame of other proportions.
enum class PictureMode {
  fill,  ///< cropped at two sides
  fit    ///< with space at two sides, for logos
};

/// Rounds the corners. Receives no touches.
class PictureView : public view::View {
 public:
  PictureView();

  void setPicture(std::shared_ptr<const graphics::Image> picture,
                  PictureMode mode = PictureMode::fill);
  const std::shared_ptr<const graphics::Image>& picture() const { return picture_; }
  PictureMode mode() const { return mode_; }

  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<const graphics::Image> picture_;
  PictureMode mode_ = PictureMode::fill;
  std::shared_ptr<const graphics::Image> cut_;  // null until it is cropped for a size
  graphics::Size cutFor_;
};

}  // namespace orivanta::viewer
