#include "Source/UI/Display/Styled/LabelView.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;
using graphics::Transaction;

namespace {

constexpr double appearanceTime = 0.2;  // seconds

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

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
  appearances_.assign(placement_.labels().size(), {});
  findSelected();
  visible_.clear();
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
  routeMarks_ = std::move(marks);
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
  if (covered == covered_) return;
  covered_ = std::move(covered);
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
    if (labels_->sources[i].place == selected_->place) selectedLabel_ = i;
}

void LabelView::setRoute(std::vector<RouteSegment> route) {
  const Transaction transaction;
  if (route == route_) return;
  route_ = std::move(route);
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
         (placement_.isChanging() || isFading_ || pictures_->isExpecting());
}

void LabelView::draw(view::Canvas& canvas) {
  const auto viewpoint = map_.sceneView->viewpoint();
  isDrawn_ = labels_ && theme_ && viewpoint;
  if (!isDrawn_) return;
  choosePictures(canvas.scale());
  pictures_->beginFrame();
  place(FloorProjection(*viewpoint, bounds().size), canvas.time(), canvas.scale());
  std::vector<Appearance> former(appearances_.size());
  for (const std::size_t label : visible_) std::swap(former[label], appearances_[label]);
  visible_.clear();
  pieces_.clear();
  isFading_ = false;
  // The most important labels are drawn last, over those that fade out.
  for (auto shown = placement_.shown().rbegin(); shown != placement_.shown().rend(); ++shown) {
    appearances_[shown->label] = former[shown->label];
    addLabel(*shown, canvas.time(), canvas.scale());
    visible_.push_back(shown->label);
  }
  canvas.draw(pictures_->sheet(), pieces_);
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
  const std::vector<Rect> panels = this->panels(scale);
  placeSelected(projection, panels, scale);
  const std::vector<Rect> marks = this->marks(projection);
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
    return shareOnOthers(rect, label, projection);
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

std::vector<Rect> LabelView::panels(double scale) const {
  std::vector<Rect> panels = covered_;
  if (furniture) {
    const std::vector<Rect> aids = furniture(scale);
    panels.insert(panels.end(), aids.begin(), aids.end());
  }
  const Rect all = bounds();
  bool isInFront = false;
  for (const auto& child : map_.subviews()) {
    const Rect frame = child->frame();
    if (isInFront && !child->isHidden() &&
        (frame.size.width < all.size.width || frame.size.height < all.size.height))
      panels.push_back(frame);
    isInFront = isInFront || child.get() == this;
  }
  return panels;
}

// The route and the visible markers, except those that are hidden where they collide.
std::vector<Rect> LabelView::marks(const FloorProjection& projection) const {
  std::vector<Rect> marks = routeMarks_;
  marks.insert(marks.end(), selectedMark_.rects().begin(), selectedMark_.rects().end());
  const double width = theme_->sizes.route + 2 * theme_->sizes.casing;
  for (const auto& [from, to] : route_)
    addRouteBoxes(projection.of(from), projection.of(to), bounds().size, width, marks);
  const auto overlay = map_.sceneView->overlayScene();
  if (!overlay) return marks;
  const graphics::Size size = overlay->size();
  if (!(size.width > 0 && size.height > 0)) return marks;
  const double xStretch = bounds().size.width / size.width;
  const double yStretch = bounds().size.height / size.height;
  for (const auto& marker : map_.markers()) {
    const auto* mark = dynamic_cast<const MapViewMarker2D*>(marker.get());
    if (mark == nullptr || !mark->node || !mark->node->hasParent() ||
        mark->hideWhenCollide.value_or(false))
      continue;
    const Rect frame = mark->node->frame();
    marks.push_back({{frame.minX() * xStretch, (size.height - frame.maxY()) * yStretch},
                     {frame.size.width * xStretch, frame.size.height * yStretch}});
  }
  return marks;
}

double LabelView::shareOnOthers(const Rect& rect, std::size_t label,
                                const FloorProjection& projection) const {
  const ProjectedPlace& place = places_[label];
  const graphics::Vector3& anchor = labels_->anchors[label];
  const double sine = std::sin(projection.turn());
  const double cosine = std::cos(projection.turn());
  const double upright = std::max(0.1, std::cos(projection.tilt()));
  const auto onFloor = [&](double x, double y) {
    const double right = (x - place.point.x) / place.pointsPerUnit;
    const double up = (place.point.y - y) / (place.pointsPerUnit * upright);
    return Point{anchor.x + right * cosine - up * sine, anchor.y + right * sine + up * cosine};
  };
  const std::array corners{onFloor(rect.minX(), rect.minY()), onFloor(rect.maxX(), rect.minY()),
                           onFloor(rect.maxX(), rect.maxY()), onFloor(rect.minX(), rect.maxY())};
  return labels_->raster.shareOnOthers(corners, static_cast<std::uint32_t>(label));
}

void LabelView::addLabel(const ShownLabel& shown, double time, double scale) {
  const PlaceLabel& label = placement_.labels()[shown.label];
  const LabelSource& source = labels_->sources[shown.label];
  Appearance& since = appearances_[shown.label];
  if (shown.symbolOpacity > 0) {
    LabelPicture picture;
    picture.form = source.isDot ? LabelPicture::Form::dot : LabelPicture::Form::icon;
    picture.size = label.symbolSize;
    picture.kind = source.kind;
    if (source.isClosed) picture.state = IconState::outOfOrder;
    addPiece(picture, shown.symbol, shown.symbolOpacity, since.symbol, time, scale);
  } else {
    since.symbol = -1;
  }
  if (shown.nameOpacity > 0) {
    LabelPicture picture;
    picture.text = joined(source.names[shown.lines - 1].lines);
    picture.size = theme_->nameSize(label.rank);
    addPiece(picture, shown.name, shown.nameOpacity, since.name, time, scale);
  } else {
    since.name = -1;
  }
}

// An image that was not there when its label came fades in when it is.
void LabelView::addPiece(const LabelPicture& picture, const Rect& rect, double opacity,
                         double& since, double time, double scale) {
  const auto place = isStill_ ? pictures_->findNow(picture) : pictures_->find(picture);
  if (!place) return;
  if (since < 0) since = time;
  const double share = isStill_ ? 1 : std::clamp((time - since) / appearanceTime, 0.0, 1.0);
  isFading_ = isFading_ || share < 1;
  const graphics::Size size{place->width / scale, place->height / scale};
  pieces_.push_back({*place,
                     {{rect.midX() - size.width / 2, rect.midY() - size.height / 2}, size},
                     std::min(opacity, share)});
}

}  // namespace orivanta
