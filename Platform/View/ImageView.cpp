#include "Platform/View/ImageView.hpp"

#include <utility>

#include "Platform/Graphics/Guarded.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::view {

ImageView::ImageView(std::shared_ptr<const graphics::Image> image) : image_(std::move(image)) {
  if (image_) setFrame({{}, image_->size()});
  setUserInteractionEnabled(false);
}

std::shared_ptr<const graphics::Image> ImageView::image() const { return graphics::read(image_); }

void ImageView::setImage(std::shared_ptr<const graphics::Image> image) {
  graphics::swapGuarded(image_, image);
}

void ImageView::draw(Canvas& canvas) {
  View::draw(canvas);
  if (const auto picture = image()) canvas.draw(picture, bounds());
}

}  // namespace orivanta::view
