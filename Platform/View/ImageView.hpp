// A view that shows a picture.
// Public header.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// A view that stretches an image over its bounds. Takes no touches.
class ORIVANTA_API ImageView : public View {
 public:
  /// As large as the image. Without one, empty.
  explicit ImageView(std::shared_ptr<const graphics::Image> image = nullptr);

  std::shared_ptr<const graphics::Image> image() const;         ///< may be null
  void setImage(std::shared_ptr<const graphics::Image> image);  ///< keeps the frame
  void draw(Canvas& canvas) override;

 private:
  std::shared_ptr<const graphics::Image> image_;
};

}  // namespace orivanta::view
