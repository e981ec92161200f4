// Information about a place, with buttons for routes from and to it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Viewer/Content/CardContent.hpp"
#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Apps/Viewer/Panels/KindIconView.hpp"
#include "Apps/Viewer/Panels/TileRow.hpp"
#include "Apps/Viewer/Panels/WeekLines.hpp"
#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Apps/Viewer/Widgets/PictureView.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Says what a place is, when it is open, and how it is reached.
class PlaceCard : public Panel {
 public:
  explicit PlaceCard(const guidance::InterfaceTexts& texts);

  std::function<void()> closed;
  std::function<void()> fromHere;
  std::function<void()> toHere;
  std::function<void()> stopAdded;                       ///< the place becomes a stop of the route
  std::function<void(std::size_t index)> nearestChosen;  ///< of `setNearest`

  /// Called when the height has changed.
  std::function<void()> layoutChanged;

  /// Shows another place. Removes the picture and folds the opening hours of the week.
  void show(const CardContent& content);

  /// Shows the same place, of which something has changed.
  void update(const CardContent& content);
  const CardContent& content() const { return content_; }

  /// Shows the opening hours of the week, or only those of today.
  void toggleWeek();

  /// Offers to make the place a stop of the current route.
  void setCanAddStop(bool can) { canAddStop_ = can; }

  /// Offers routes from the place to the nearest places of some kinds.
  void setNearest(const std::vector<NearestChoice>& choices);

  /// Null shows no picture.
  void setPicture(std::shared_ptr<const graphics::Image> picture, PictureMode mode);

  /// Returns the height for this width. A wide picture takes the full width. Other pictures, and
  /// all pictures on a small screen, are beside the name. If the card would be higher than
  /// `mostHeight`, first the picture is made small, then the description is shortened, then the
  /// buttons for the nearest places are hidden, then the week is shortened.
  double arrange(double width, double mostHeight, bool isSmall);

 private:
  // What is shown if there is little room.
  struct Fit {
    bool isSmall;  // of the picture
    int lines;     // of the description, at most
    bool showsNearest = true;
    std::size_t days = 7;  // of the week, at most
  };

  double arrangeParts(double width, const Fit& fit);
  double arrangeHead(double width, bool isSmall);
  double arrangeHours(double width, double top, std::size_t days);
  double arrangeContacts(double width, double top);
  double arrangeNearest(double width, double top, bool shows);
  double arrangeButtons(double width, double top);
  bool hasWidePicture() const;

  const guidance::InterfaceTexts texts_;
  CardContent content_;
  std::shared_ptr<KindIconView> icon_;
  std::shared_ptr<PictureView> picture_;
  std::shared_ptr<Label> name_;
  std::shared_ptr<Label> kind_;
  std::shared_ptr<Label> state_;
  std::shared_ptr<WeekLines> week_;
  std::shared_ptr<Label> phone_;
  std::shared_ptr<Label> website_;
  std::shared_ptr<Label> description_;
  std::shared_ptr<Button> close_;
  std::shared_ptr<Button> from_;
  std::shared_ptr<Button> to_;
  std::shared_ptr<Button> addStop_;
  std::vector<std::shared_ptr<Tile>> nearest_;
  bool canAddStop_ = false;
};

}  // namespace orivanta::viewer
