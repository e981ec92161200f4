// A view that shows a picture.
#pragma once

#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// Stretches the picture over its bounds. Takes no touches.
class ORIVANTA_API ImageView : public View {
 public:
  /// As large as the picture.
  explicit ImageView(std::shared_ptr<const graphics::Image> image = nullptr);

  std::shared_ptr<const graphics::Image> image() const;
  void setImage(std::shared_ptr<const graphics::Image> image);
  void draw(Canvas& canvas) override;

 private:
  std::shared_ptr<const graphics::Image> image_;
};

}  // namespace orivanta::view
