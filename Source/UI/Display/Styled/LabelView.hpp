// Draws the labels of a styled map.
// Private header.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "Platform/View/Canvas.hpp"
#include "Platform/View/View.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"
#include "Source/UI/Display/Styled/LabelObstacles.hpp"
#include "Source/UI/Display/Styled/LabelPictures.hpp"
#include "Source/UI/Display/Styled/LabelPieces.hpp"
#include "Source/UI/Display/Styled/NamePlaces.hpp"
#include "Source/UI/Display/Styled/SelectedMark.hpp"
#include "Source/UI/Labels/LabelPlacement.hpp"

namespace orivanta {

class FloorProjection;
class MapView;

/// A view over the scene view of a map view. It receives no touches. The functions that change it
/// are called on the main thread.
class LabelView : public view::View {
 public:
  /// `map` must exist as long as the view is a child of it.
  explicit LabelView(const MapView& map);
  ~LabelView() override;

  /// Adds the view to the map view, in front of the scene view and behind the other children.
  void addTo(MapView& map);

  /// Redraws all images if the theme has changed. Never null.
  void setTheme(std::shared_ptr<const MapTheme> theme);

  /// Replaces the labels; null removes them.
  void setLabels(std::shared_ptr<const FloorLabels> labels);

  /// If still, each frame is complete: labels neither fade nor wait for their images.
  void setStill(bool isStill);

  /// The parts of the view that other views cover, in points. Children of the map view in front of
  /// this view are added unless they cover all of it.
  void setCovered(std::vector<graphics::Rect> covered);

  /// Sets `LabelObstacles::furniture`.
  void setFurniture(std::function<std::vector<graphics::Rect>(double scale)> furniture) {
    obstacles_.furniture = std::move(furniture);
  }

  /// Shows a pin and a name instead of the label of a place; nothing removes them.
  void setSelected(std::optional<SelectedPlace> selected);

  /// The route on the floor. No label is placed over it.
  void setRoute(std::vector<RouteSegment> route);

  /// The places that have marks of a route. Neither their labels nor the pin of a selected place
  /// are shown.
  void setMarked(std::vector<std::shared_ptr<Location>> places);

  /// The parts of the view that marks cover. Called before each frame; requests none.
  void setMarks(std::vector<graphics::Rect> marks);

  /// Returns the scale of the floor, see `FloorLabels`. Nothing while there are no labels.
  std::optional<double> unitsPerMeter() const;

  /// Returns the place whose name or symbol is at a point of the last frame, or null.
  std::shared_ptr<Location> labelAt(graphics::Point point) const;

  /// Returns the place with the nearest symbol within a distance in points, or null.
  std::shared_ptr<Location> symbolNear(graphics::Point point, double distance) const;

  /// Waits for the images that the last frame lacked.
  void finish();

  void draw(view::Canvas& canvas) override;
  bool isAnimating() const override;

 private:
  void findSelected();
  bool isMarked(const std::shared_ptr<Location>& place) const;
  void choosePictures(double scale);
  void place(const FloorProjection& projection, double time, double scale);
  void placeSelected(const FloorProjection& projection, std::span<const graphics::Rect> panels,
                     double scale);

  const MapView& map_;
  // Changed and read under transactions.
  std::shared_ptr<const MapTheme> theme_;
  std::shared_ptr<const FloorLabels> labels_;  // null if there are none
  LabelObstacles obstacles_;
  std::vector<std::shared_ptr<Location>> marked_;
  std::optional<SelectedPlace> selected_;
  std::optional<std::size_t> selectedLabel_;  // nothing if the selected place has none
  SelectedMark selectedMark_;
  bool isStill_ = false;
  bool isNew_ = false;                       // the labels were not drawn yet
  bool isDrawn_ = false;                     // the last frame had labels
  double scale_ = 0;                         // of the images
  std::shared_ptr<LabelPictures> pictures_;  // null before the first frame with labels
  LabelPlacement placement_;
  std::vector<ProjectedPlace> places_;
  NamePlaces namePlaces_;
  LabelPieces pieces_;
};

}  // namespace orivanta
