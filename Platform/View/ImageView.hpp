// A view that shows an image.
// Public header.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// Shows an image stretched to its bounds. Does not receive touches.
class ORIVANTA_API ImageView : public View {
 public:
  /// Creates a view of the image's size, or with an empty frame if the image is null.
  explicit ImageView(std::shared_ptr<const graphics::Image> image = nullptr);

  std::shared_ptr<const graphics::Image> image() const;         ///< may be null
  void setImage(std::shared_ptr<const graphics::Image> image);  ///< keeps the frame
  void draw(Canvas& canvas) override;

 private:
  std::shared_ptr<const graphics::Image> image_;
};

}  // namespace orivanta::view
