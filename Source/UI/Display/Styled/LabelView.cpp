#include "Source/UI/Display/Styled/LabelView.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;
using graphics::Transaction;

namespace {

bool isHit(const Rect& rect, double opacity, Point point) {
  return opacity > 0 && rect.contains(point);
}

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

LabelView::LabelView(const MapView& map) : map_(map) { setUserInteractionEnabled(false); }

LabelView::~LabelView() = default;

void LabelView::addTo(MapView& map) {
  const Transaction transaction;
  map.addSubview(shared_from_this());
  boundInside(*this, map);
  for (const auto& child : map.subviews())
    if (child != map.sceneView && child.get() != this) map.bringSubviewToFront(*child);
}

void LabelView::setTheme(std::shared_ptr<const MapTheme> theme) {
  const Transaction transaction;
  if (theme == theme_) return;
  theme_ = std::move(theme);
  pictures_.reset();
  selectedMark_.clear();
  setNeedsFrame();
}

void LabelView::setLabels(std::shared_ptr<const FloorLabels> labels) {
  const Transaction transaction;
  labels_ = std::move(labels);
  placement_.setLabels(labels_ ? labels_->labels : std::vector<PlaceLabel>());
  pieces_.reset(placement_.labels().size());
  namePlaces_.reset();
  findSelected();
  isNew_ = true;
  isDrawn_ = false;
  setNeedsFrame();
}

void LabelView::setMarked(std::vector<std::shared_ptr<Location>> places) {
  const Transaction transaction;
  if (places == marked_) return;
  marked_ = std::move(places);
  setNeedsFrame();
}

void LabelView::setMarks(std::vector<Rect> marks) {
  const Transaction transaction;
  obstacles_.routeMarks = std::move(marks);
}

bool LabelView::isMarked(const std::shared_ptr<Location>& place) const {
  return std::find(marked_.begin(), marked_.end(), place) != marked_.end();
}

std::optional<double> LabelView::unitsPerMeter() const {
  const Transaction transaction;
  return labels_ ? std::optional(labels_->unitsPerMeter) : std::nullopt;
}

void LabelView::setStill(bool isStill) {
  const Transaction transaction;
  isStill_ = isStill;
  pictures_.reset();  // it has an upload budget
  setNeedsFrame();
}

void LabelView::setCovered(std::vector<Rect> covered) {
  const Transaction transaction;
  if (covered == obstacles_.covered) return;
  obstacles_.covered = std::move(covered);
  setNeedsFrame();
}

void LabelView::setSelected(std::optional<SelectedPlace> selected) {
  const Transaction transaction;
  if (selected == selected_) return;
  selected_ = std::move(selected);
  selectedMark_.clear();
  findSelected();
  setNeedsFrame();
}

void LabelView::findSelected() {
  selectedLabel_.reset();
  if (!selected_ || !labels_) return;
  for (std::size_t i = 0; i < labels_->sources.size(); ++i)
    if (!selectedLabel_ && labels_->sources[i].place == selected_->place) selectedLabel_ = i;
}

void LabelView::setRoute(std::vector<RouteSegment> route) {
  const Transaction transaction;
  if (route == obstacles_.route) return;
  obstacles_.route = std::move(route);
  setNeedsFrame();
}

std::shared_ptr<Location> LabelView::labelAt(Point point) const {
  const Transaction transaction;
  if (!labels_ || isHidden()) return nullptr;
  for (const Rect& rect : selectedMark_.rects())
    if (rect.contains(point)) return selected_->place;
  for (const ShownLabel& shown : placement_.shown())
    if (isHit(shown.name, shown.nameOpacity, point) ||
        isHit(shown.symbol, shown.symbolOpacity, point))
      return labels_->sources[shown.label].place;
  return nullptr;
}

std::shared_ptr<Location> LabelView::symbolNear(Point point, double distance) const {
  const Transaction transaction;
  std::shared_ptr<Location> nearest;
  if (!labels_ || isHidden()) return nearest;
  for (const ShownLabel& shown : placement_.shown()) {
    const double away = std::hypot(shown.symbol.midX() - point.x, shown.symbol.midY() - point.y);
    if (!(shown.symbolOpacity > 0) || away > distance) continue;
    distance = away;
    nearest = labels_->sources[shown.label].place;
  }
  return nearest;
}

// The tasks that draw images are not waited for under a transaction, because other tasks of the
// pool may need one.
void LabelView::finish() {
  std::shared_ptr<LabelPictures> pictures;
  {
    const Transaction transaction;
    pictures = pictures_;
  }
  if (pictures) pictures->finish();
}

bool LabelView::isAnimating() const {
  const Transaction transaction;
  return isDrawn_ && !isStill_ &&
         (placement_.isChanging() || pieces_.isFading() || pictures_->isExpecting());
}

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
  for (std::size_t i = 0; i < labels_->anchors.size(); ++i)
    places_.push_back(isMarked(labels_->sources[i].place) ? ProjectedPlace()
                                                          : projection.of(labels_->anchors[i]));
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
