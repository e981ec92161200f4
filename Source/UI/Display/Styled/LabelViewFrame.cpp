// What a view of labels does in a frame.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/Display/Styled/LabelView.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;

namespace {

// Returns the points of the floor below the corners of a rectangle of the view. `place` is where
// the point `anchor` of the floor is seen.
std::array<Point, 4> cornersOnFloor(const Rect& rect, const ProjectedPlace& place,
                                    const graphics::Vector3& anchor,
                                    const FloorProjection& projection) {
  const double sine = std::sin(projection.turn());
  const double cosine = std::cos(projection.turn());
  const double upright = std::max(0.1, std::cos(projection.tilt()));
  const auto onFloor = [&](double x, double y) {
    const double right = (x - place.point.x) / place.pointsPerUnit;
    const double up = (place.point.y - y) / (place.pointsPerUnit * upright);
    return Point{anchor.x + right * cosine - up * sine, anchor.y + right * sine + up * cosine};
  };
  return {onFloor(rect.minX(), rect.minY()), onFloor(rect.maxX(), rect.minY()),
          onFloor(rect.maxX(), rect.maxY()), onFloor(rect.minX(), rect.maxY())};
}

}  // namespace

void LabelView::draw(view::Canvas& canvas) {
  const auto viewpoint = map_.sceneView->viewpoint();
  isDrawn_ = labels_ && theme_ && viewpoint;
  if (!isDrawn_) return;
  choosePictures(canvas.scale());
  pictures_->beginFrame();
  place(FloorProjection(*viewpoint, bounds().size), canvas.time(), canvas.scale());
  pieces_.collect(placement_, *labels_,
                  {*theme_, *pictures_, canvas.time(), canvas.scale(), isStill_});
  canvas.draw(pictures_->sheet(), pieces_.pieces());
  selectedMark_.draw(canvas);
}

void LabelView::choosePictures(double scale) {
  if (pictures_ && scale == scale_) return;
  scale_ = scale;
  pictures_ = std::make_shared<LabelPictures>(theme_, scale);
  if (isStill_) pictures_->sheet()->setUploadBudget(std::numeric_limits<std::size_t>::max());
}

void LabelView::place(const FloorProjection& projection, double time, double scale) {
  places_.clear();
  for (std::size_t i = 0; i < labels_->anchors.size(); ++i) {
    const bool isHidden =
        isMarked(labels_->sources[i].place) ||
        (labels_->cover && labels_->cover->hides(labels_->anchors[i], projection.eye()));
    places_.push_back(isHidden ? ProjectedPlace() : projection.of(labels_->anchors[i]));
  }
  const std::vector<Rect> panels = obstacles_.panels(map_, *this, scale);
  placeSelected(projection, panels, scale);
  namePlaces_.choose(*labels_, places_, bounds().size, panels);
  std::vector<Rect> marks = obstacles_.marks(map_, projection, *theme_);
  marks.insert(marks.end(), selectedMark_.rects().begin(), selectedMark_.rects().end());
  LabelFrame frame;
  frame.time = time;
  frame.view = bounds().size;
  frame.unitsPerMeter = labels_->unitsPerMeter;
  frame.tilt = projection.tilt();
  frame.turn = projection.turn();
  frame.places = places_;
  frame.panels = panels;
  frame.marks = marks;
  frame.shareOnOtherAreas = [&](const Rect& rect, std::size_t label) {
    const auto corners = cornersOnFloor(rect, places_[label], labels_->anchors[label], projection);
    return labels_->raster.shareOnOthers(corners, static_cast<std::uint32_t>(label));
  };
  if (isStill_ || isNew_)
    placement_.placeAtOnce(frame);
  else
    placement_.update(frame);
  isNew_ = false;
}

// The label of the selected place is hidden while the pin is there. The ends of a route have pins
// of their own.
void LabelView::placeSelected(const FloorProjection& projection, std::span<const Rect> panels,
                              double scale) {
  selectedMark_.hide();
  if (!selected_ || isMarked(selected_->place)) return;
  const ProjectedPlace at =
      selectedLabel_ ? places_[*selectedLabel_] : projection.of(selected_->position);
  if (selectedLabel_) places_[*selectedLabel_].pointsPerUnit = 0;
  if (at.pointsPerUnit > 0)
    selectedMark_.arrange(*selected_, at.point, bounds().size, panels, *theme_, scale);
}

}  // namespace orivanta
