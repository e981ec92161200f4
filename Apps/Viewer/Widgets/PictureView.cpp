#include "Apps/Viewer/Widgets/PictureView.hpp"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double corner = 8;  // points

// Returns the share of the pixel that a rectangle with rounded corners covers.
double coverage(double x, double y, double width, double height, double radius) {
  const double right = std::max(0.0, std::abs(x + 0.5 - width / 2) - width / 2 + radius);
  const double down = std::max(0.0, std::abs(y + 0.5 - height / 2) - height / 2 + radius);
  return std::clamp(radius - std::hypot(right, down) + 0.5, 0.0, 1.0);
}

// Returns the center of the image, cropped to the proportions of `size`.
std::shared_ptr<const graphics::Image> cut(const graphics::Image& image, graphics::Size size) {
  const double wide = image.width();
  const double high = image.height();
  const double factor = std::min(wide / size.width, high / size.height);  // pixels per point
  const auto width = static_cast<std::uint32_t>(std::clamp(size.width * factor, 1.0, wide));
  const auto height = static_cast<std::uint32_t>(std::clamp(size.height * factor, 1.0, high));
  const std::uint32_t left = (image.width() - width) / 2;
  const std::uint32_t top = (image.height() - height) / 2;
  std::vector<std::uint8_t> pixels;
  pixels.reserve(std::size_t{width} * height * 4);
  for (std::uint32_t y = 0; y < height; ++y)
    for (std::uint32_t x = 0; x < width; ++x) {
      const auto source =
          image.pixels().subspan((std::size_t{top + y} * image.width() + left + x) * 4, 4);
      pixels.insert(pixels.end(), source.begin(), source.end() - 1);
      pixels.push_back(static_cast<std::uint8_t>(
          std::lround(source[3] * coverage(x, y, width, height, corner * factor))));
    }
  return graphics::Image::make(width, height, std::move(pixels));
}

}  // namespace

PictureView::PictureView() { setUserInteractionEnabled(false); }

void PictureView::setPicture(std::shared_ptr<const graphics::Image> picture, PictureMode mode) {
  picture_ = std::move(picture);
  mode_ = mode;
  cut_ = nullptr;
}

void PictureView::draw(view::Canvas& canvas) {
  View::draw(canvas);
  const graphics::Size size = bounds().size;
  if (!picture_ || size.width <= 0 || size.height <= 0) return;
  graphics::Size shown = size;
  if (mode_ == PictureMode::fit) {
    const graphics::Size whole = picture_->size();
    const double factor = std::min(size.width / whole.width, size.height / whole.height);
    shown = {whole.width * factor, whole.height * factor};
  }
  if (!cut_ || !(cutFor_ == shown)) {
    cut_ = cut(*picture_, shown);
    cutFor_ = shown;
  }
  canvas.draw(cut_, {{(size.width - shown.width) / 2, (size.height - shown.height) / 2}, shown});
}

}  // namespace orivanta::viewer
