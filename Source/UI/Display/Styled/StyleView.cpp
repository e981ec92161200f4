#include "Source/UI/Display/Styled/StyleView.hpp"

#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Attribution.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/Styled/StackView.hpp"
#include "Source/UI/Display/Styled/StyledRoute.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

// Lengths in points.
constexpr double margin = 10;
constexpr double compassMargin = 6;
constexpr double gap = 8;
constexpr graphics::Size logoRoom{90, 40};  // at the lower right
constexpr double leastWidthBesideLogo = 200;

// Adds a view directly in front of another child.
void addAbove(view::View& parent, const view::View& below,
              const std::shared_ptr<view::View>& added) {
  const auto others = parent.subviews();
  parent.addSubview(added);
  bool isAbove = false;
  for (const auto& other : others) {
    if (isAbove) parent.bringSubviewToFront(*other);
    isAbove = isAbove || other.get() == &below;
  }
}

graphics::Rect freeRect(const MapView& view) {
  const graphics::Size size = view.camera().lens().size;
  const Insets& insets = view.camera().insets();
  return {{insets.left, insets.top},
          {size.width - insets.left - insets.right, size.height - insets.top - insets.bottom}};
}

// Returns the room for what is at the lower left, without that of the logo.
graphics::Rect lowerLeft(const graphics::Rect& free) {
  graphics::Rect room{{free.minX() + margin, free.minY() + margin},
                      {free.size.width - 2 * margin, free.size.height - 2 * margin}};
  if (room.size.width - logoRoom.width >= leastWidthBesideLogo)
    room.size.width -= logoRoom.width;
  else
    room.size.height -= logoRoom.height;
  return room;
}

}  // namespace

std::shared_ptr<StyleView> StyleView::addTo(MapView& view) {
  const graphics::Transaction transaction;
  auto added = std::make_shared<StyleView>(view);
  added->setUserInteractionEnabled(false);
  added->compass_ = CompassView::make([&view] { view.camera().resetNorth(CameraMotion::glide); });
  addAbove(view, *view.sceneView, added);
  addAbove(view, *added, added->compass_);
  boundInside(*added, view);
  return added;
}

void StyleView::remove() {
  const graphics::Transaction transaction;
  route_ = nullptr;
  compass_->removeFromSuperview();
  removeFromSuperview();
}

void StyleView::setTheme(std::shared_ptr<const MapTheme> theme) {
  const graphics::Transaction transaction;
  compass_->setTheme(theme);
  theme_ = std::move(theme);
  dot_.clear();
  scaleBar_.clear();
  attribution_.clear();
  setNeedsFrame();
}

void StyleView::setFurniture(const MapFurniture& furniture) {
  const graphics::Transaction transaction;
  if (furniture == furniture_) return;
  furniture_ = furniture;
  if (!furniture.compass) compass_->setHidden(true);
  setNeedsFrame();
}

void StyleView::setPosition(const std::optional<MapPosition>& position) {
  const graphics::Transaction transaction;
  if (position == position_) return;
  position_ = position;
  setNeedsFrame();
}

void StyleView::venueChanged() {
  const graphics::Transaction transaction;
  unitsPerMeter_ = view_.venue ? guidance::unitsPerMeterOf(*view_.venue).value_or(0) : 0;
  attribution_.setText(view_.venue ? attributionText(*view_.venue) : "");
  setNeedsFrame();
}

void StyleView::setRoute(StyledRoute* route) {
  const graphics::Transaction transaction;
  route_ = route;
}

void StyleView::setStack(StackView* stack) {
  const graphics::Transaction transaction;
  stack_ = stack;
}

bool StyleView::isAnimating() const {
  const graphics::Transaction transaction;
  return (route_ != nullptr && route_->isAnimating()) || View::isAnimating();
}

void StyleView::draw(view::Canvas& canvas) {
  if (!theme_ || !view_.camera().isReady()) return;
  if (route_ != nullptr) route_->draw(canvas);
  if (position_) drawPosition(canvas);
  arrangeFurniture(canvas.scale());
  if (furniture_.attribution) attribution_.draw(canvas, *theme_);
  if (furniture_.scaleBar) scaleBar_.draw(canvas, *theme_);
}

void StyleView::drawPosition(view::Canvas& canvas) {
  const auto rise = stack_ != nullptr ? stack_->riseOf(*position_->floor) : std::nullopt;
  if (!rise && position_->floor != view_.currentMap()) return;
  MapPosition raised = *position_;
  raised.z += rise.value_or(0);
  dot_.draw(canvas, view_, raised, unitsPerMeter_, *theme_);
}

std::vector<graphics::Rect> StyleView::arrangeFurniture(double scale) {
  std::vector<graphics::Rect> covered;
  if (!theme_ || !view_.camera().isReady()) return covered;
  const auto cover = [&](const graphics::Rect& rect) {
    if (rect.size.width > 0) covered.push_back(rect);
  };
  const graphics::Rect free = freeRect(view_);
  const CameraPose pose = view_.camera().pose();
  if (furniture_.compass) {
    compass_->setFrame(
        {{free.maxX() - compassMargin - CompassView::side, free.minY() + compassMargin},
         {CompassView::side, CompassView::side}});
    compass_->setTurn(pose.turn);
    if (!compass_->isHidden()) cover(compass_->frame());
  }
  const graphics::Rect room = lowerLeft(free);
  double top = room.maxY();
  if (furniture_.attribution) {
    const graphics::Rect note = attribution_.arrange(room, *theme_, scale);
    if (note.size.height > 0) top = note.minY() - gap;
    cover(note);
  }
  if (furniture_.scaleBar)
    cover(scaleBar_.arrange(
        {room.minX(), top},
        unitsPerMeter_ / (view_.camera().lens().slopePerPoint() * pose.distance), *theme_, scale));
  if (stack_ != nullptr) stack_->arrange(scale, covered);
  return covered;
}

}  // namespace orivanta
