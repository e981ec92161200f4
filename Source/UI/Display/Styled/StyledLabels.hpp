// The labels of the floor that a styled map shows.
// Private header.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/UI/Display/Styled/LabelView.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// Makes the labels of the current floor of a map view in the background, and shows them as soon as
/// they are made, through the main queue. Main thread.
class StyledLabels {
 public:
  StyledLabels() = default;
  ~StyledLabels() { detach(); }
  StyledLabels(const StyledLabels&) = delete;
  StyledLabels& operator=(const StyledLabels&) = delete;

  /// `furniture`: see `LabelView::furniture`.
  void attach(MapView& view, std::function<std::vector<graphics::Rect>(double scale)> furniture);
  void detach();

  /// Shows the labels of the current floor in a theme. Makes them only if the theme or the model of
  /// the floor is another one than in the previous call. Requires `attach`.
  void show(const std::shared_ptr<const MapTheme>& theme);

  /// Sets what is closed, and the word for it, which follows the names. If this changes, makes the
  /// labels anew.
  void setClosures(const guidance::Closures& closures, const std::string& word);

  /// Marks a place on the current floor.
  void setSelected(std::optional<SelectedPlace> selected);

  /// Shows other labels, and no selected place, instead of those of the floor; null ends this.
  void setInstead(std::shared_ptr<const FloorLabels> labels);

  /// Removes the labels.
  void clear();

  /// See `MapStyle`.
  bool isReady() const { return !making_; }
  void finish();
  void setShown(bool areShown);

  /// Hides the labels even if they are to be shown.
  void setHidden(bool isHidden);
  void setStill(bool isStill);
  void setCovered(std::vector<graphics::Rect> covered);

  // See `LabelView`.
  void setRoute(std::vector<RouteSegment> route);
  void setMarked(std::vector<std::shared_ptr<Location>> places);
  void setMarks(std::vector<graphics::Rect> marks);
  std::optional<double> unitsPerMeter() const;

  /// Returns the view that shows the labels, or null if detached.
  const LabelView* view() const { return shown_.get(); }

 private:
  class Areas;
  class Making;

  void make();
  void take();
  void showMade();

  MapView* map_ = nullptr;
  std::shared_ptr<LabelView> shown_;
  std::shared_ptr<Making> making_;              // null if nothing is being made
  std::shared_ptr<const FloorLabels> made_;     // null if nothing was made
  std::shared_ptr<const FloorLabels> instead_;  // null if those of the floor are shown
  std::optional<SelectedPlace> selected_;
  std::weak_ptr<scene::Node> model_;
  std::shared_ptr<const MapTheme> theme_;  // of the labels
  std::shared_ptr<Areas> areas_;           // null before the first labels
  std::weak_ptr<scene::Node> areasModel_;
  std::vector<graphics::Rect> covered_;
  std::vector<RouteSegment> route_;
  std::vector<std::shared_ptr<Location>> marked_;
  bool areShown_ = true;
  guidance::Closures closures_;
  std::string closedWord_;
  bool isHidden_ = false;
  bool isStill_ = false;
};

}  // namespace orivanta
