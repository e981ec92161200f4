// A picture on the screen.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// How a picture takes to a frame of other proportions.
enum class PictureMode {
  fill,  ///< cut at two sides
  fit    ///< with room at two sides, as a logo
};

/// With round corners. Takes no touches.
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
  std::shared_ptr<const graphics::Image> cut_;  // null until it was cut for a size
  graphics::Size cutFor_;
};

}  // namespace orivanta::viewer
