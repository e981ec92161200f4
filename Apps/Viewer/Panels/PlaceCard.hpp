// What there is to know about a place, and the ways from and to it.
#pragma once

#include <functional>
#include <memory>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta {
class Location;
}

namespace orivanta::viewer {

class PlaceCard : public Panel {
 public:
  PlaceCard();

  std::function<void()> closed;
  std::function<void()> fromHere;
  std::function<void()> toHere;

  void show(const Location& place);

  /// Above the text; null for none.
  void setPicture(std::shared_ptr<const graphics::Image> picture);

  /// Its height with this width. On small screens the picture is left out.
  double arrange(double width, bool isSmall);
  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<const graphics::Image> picture_;
  graphics::Rect pictureFrame_;
  std::shared_ptr<Label> name_;
  std::shared_ptr<Label> kind_;
  std::shared_ptr<Label> description_;
  std::shared_ptr<Button> close_;
  std::shared_ptr<Button> from_;
  std::shared_ptr<Button> to_;
};

}  // namespace orivanta::viewer
