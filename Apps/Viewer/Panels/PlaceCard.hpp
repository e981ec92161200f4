// Information about a place, with buttons for routes from and to it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/PictureView.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta {
class Location;
}

namespace orivanta::viewer {

class PlaceCard : public Panel {
 public:
  explicit PlaceCard(const guidance::InterfaceTexts& texts);

  std::function<void()> closed;
  std::function<void()> fromHere;
  std::function<void()> toHere;
  std::function<void()> stopAdded;                       ///< the place becomes a stop of the route
  std::function<void(std::size_t index)> nearestChosen;  ///< of `setNearest`

  void show(const Location& place, const std::string& name);

  /// Says whether the place is closed.
  void setPlaceClosed(bool isClosed);
  bool saysClosed() const { return !closed_->text().empty(); }

  /// Offers to make the place a stop of the current route.
  void setCanAddStop(bool can) { canAddStop_ = can; }

  /// Offers routes from the place to the nearest places of some kinds, by the titles of buttons.
  void setNearest(const std::vector<std::string>& titles);

  /// Null shows no picture.
  void setPicture(std::shared_ptr<const graphics::Image> picture, PictureMode mode);

  /// Returns the height for this width. A wide picture takes the full width. Other pictures, and
  /// all pictures on a small screen, are beside the name. If the card would be higher than
  /// `mostHeight`, first the picture is made small, then the description is shortened, then the
  /// buttons for the nearest places are hidden.
  double arrange(double width, double mostHeight, bool isSmall);

 private:
  double arrangeParts(double width, bool isSmall, int lines);
  double arrangeHead(double width, bool isSmall);
  double arrangeNearest(double width, double top);
  double arrangeButtons(double width, double top);
  bool hasWidePicture() const;

  const guidance::InterfaceTexts texts_;
  std::shared_ptr<PictureView> picture_;
  std::shared_ptr<Label> name_;
  std::shared_ptr<Label> kind_;
  std::shared_ptr<Label> closed_;
  std::shared_ptr<Label> description_;
  std::shared_ptr<Button> close_;
  std::shared_ptr<Button> from_;
  std::shared_ptr<Button> to_;
  std::shared_ptr<Button> addStop_;
  std::vector<std::shared_ptr<Button>> nearest_;
  bool canAddStop_ = false;
  bool showsNearest_ = true;  // if there is room
};

}  // namespace orivanta::viewer
