// Information about a place, with buttons for routes from and to it.
#pragma once

#include <functional>
#include <memory>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/PictureView.hpp"

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

  /// Null shows no picture.
  void setPicture(std::shared_ptr<const graphics::Image> picture, PictureMode mode);

  /// Returns the height for this width. A wide picture takes the full width. Other pictures, and
  /// all pictures on a small screen, are beside the name. If the card would be higher than
  /// `mostHeight`, first the picture is made small, then the description is shortened.
  double arrange(double width, double mostHeight, bool isSmall);

 private:
  double arrangeParts(double width, bool isSmall, int lines);
  double arrangeHead(double width, bool isSmall);
  bool hasWidePicture() const;

  std::shared_ptr<PictureView> picture_;
  std::shared_ptr<Label> name_;
  std::shared_ptr<Label> kind_;
  std::shared_ptr<Label> description_;
  std::shared_ptr<Button> close_;
  std::shared_ptr<Button> from_;
  std::shared_ptr<Button> to_;
};

}  // namespace orivanta::viewer
