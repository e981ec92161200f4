#include "Source/UI/Display/Styled/LabelView.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;
using graphics::Transaction;

namespace {

bool isHit(const Rect& rect, double opacity, Point point) {
  return opacity > 0 && rect.contains(point);
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

}  // namespace orivanta
