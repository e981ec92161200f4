#include "Apps/Viewer/VenueView.hpp"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <utility>

#include "Platform/View/ImageView.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

guidance::LocalTime systemTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min};
}

}  // namespace

std::shared_ptr<VenueView> VenueView::make(std::shared_ptr<Venue> venue,
                                           const guidance::InterfaceTexts& texts,
                                           VenueViewOptions options) {
  std::shared_ptr<VenueView> made(new VenueView(std::move(venue), texts, std::move(options)));
  made->mapView_->delegate = std::weak_ptr<MapViewDelegate>(made);
  made->connectSearch();
  made->connectCard();
  made->connectRoute();
  return made;
}

VenueView::VenueView(std::shared_ptr<Venue> venue, const guidance::InterfaceTexts& texts,
                     VenueViewOptions options)
    : venue_(std::move(venue)),
      texts_(texts),
      narrator_(texts.language()),
      clock_(options.clock ? std::move(options.clock) : systemTime),
      walksAtOnce_(options.walksAtOnce),
      theme_(options.theme ? options.theme : MapTheme::light()),
      mapView_(MapView::make()),
      style_(MapStyle::make(theme_)),
      kept_(mapView_->camera()),
      session_(venue_, texts, clock_),
      display_(mapView_),
      walk_(mapView_),
      panels_(*venue_, texts),
      hint_(std::make_shared<FloorHint>(texts)) {
  mapView_->venue = venue_;
  mapView_->allowsSimultaneousGestures = true;
  style_->setTexts(texts);
  style_->setModelColors(options.theme == nullptr);
  style_->setFurniture({.compass = true, .scaleBar = true});  // the panels have the attribution
  style_->setReducedMotion(options.reducesMotion);
  mapView_->setStyle(style_);
  camera().setReducedMotion(options.reducesMotion);
  addSubview(mapView_);
  addSubview(hint_);
  panels_.addTo(*this);
  panels_.setReducedMotion(options.reducesMotion);
}

// --- Layout

void VenueView::arrange(graphics::Size size, double scale) {
  const bool isResized = !(size == bounds().size);
  const bool isRescaled = std::exchange(scale_, scale) != scale;
  setFrame({{0, 0}, size});
  applyLook();
  resizeMap(isResized);
  arrangePanels();
  if (isLoaded_ && (isResized || isRescaled)) showAnew();
}

// The map has the contrast of the interface, and texts that are as large.
void VenueView::applyLook() {
  const theme::Look& look = theme::look();
  const bool isSame =
      look.textScale == look_.textScale && look.hasHighContrast == look_.hasHighContrast;
  look_ = look;
  if (isSame) return;
  const MapTheme theme = look.hasHighContrast ? theme_->withHighContrast() : *theme_;
  style_->setTheme(std::make_shared<const MapTheme>(theme.withTextScale(look.textScale)));
}

void VenueView::resizeMap(bool overlayToo) {
  mapView_->setFrame(bounds());
  mapView_->layoutIfNeeded();
  if (overlayToo) mapView_->renewOverlay();
}

// Updates what depends on the size or the scale of the view.
void VenueView::showAnew() {
  display_.redraw(scale_);
  floorShown();
  if (!kept_.showAgain()) camera().setPose(camera().pose());
}

void VenueView::arrangePanels() {
  const graphics::Size size = bounds().size;
  if (size.width <= 0) return;
  panels_.arrange(
      size,
      {.place = selected_ != nullptr, .route = session_.hasStops(), .wayBack = wayBack != nullptr});
  camera().setInsets(panels_.insets());
  arrangeHint();
  arrangeLogo();
  auto covered = panels_.covered();
  if (!hint_->isHidden()) covered.push_back(hint_->frame());
  style_->setCovered(std::move(covered));
}

// Says at the upper edge of the uncovered part of the map that the selected place is elsewhere.
void VenueView::arrangeHint() {
  constexpr double margin = 8;  // points
  const auto& floor = mapView_->currentMap();
  const bool isElsewhere = isLoaded_ && selected_ && floor && !isOnFloor(*selected_, *floor);
  const auto floors = isElsewhere ? floorsOf(*selected_) : FloorList();
  hint_->setHidden(floors.empty());
  if (floors.empty()) return;
  const Insets edges = panels_.insets();
  double left = edges.left + margin;
  double right = bounds().size.width - edges.right - margin;
  const double top = edges.top + margin;
  for (const graphics::Rect& panel : {panels_.floors->frame(), panels_.mapButtons->frame()}) {
    if (panel.maxY() <= top || panel.minY() >= top + 2 * theme::control()) continue;
    if (panel.midX() > (left + right) / 2)
      right = std::min(right, panel.minX() - margin);
    else
      left = std::max(left, panel.maxX() + margin);
  }
  const graphics::Size size = hint_->show(*floors.front(), right - left);
  hint_->setFrame({{std::round((left + right - size.width) / 2), top}, size});
}

// A logo that is covered in part looks like a mistake.
void VenueView::arrangeLogo() {
  const auto covered = panels_.covered();
  for (const auto& child : mapView_->subviews())
    if (dynamic_cast<view::ImageView*>(child.get()) != nullptr)
      child->setHidden(std::any_of(covered.begin(), covered.end(), [&](const auto& panel) {
        return panel.intersects(child->frame());
      }));
}

std::vector<view::View*> VenueView::inReadingOrder() const {
  auto order = panels_.inReadingOrder();
  if (!hint_->isHidden() && panels_.help->isHidden()) order.push_back(hint_.get());
  return order;
}

// --- Time

bool VenueView::isMoving() const {
  if (!isLoaded_) return false;
  return panels_.isMoving() || walk_.isMoving() || awaitedFloor_ ||
         (!isHidden() && mapView_->isAnimating());
}

void VenueView::advance(double time) {
  panels_.advance(time);
  if (walk_.walker()) walk(time);
  camera().advance(time);
  if (!isLoaded_) return;
  display_.arrange();
  keepCardCurrent();
  lastPose_ = camera().pose();
}

}  // namespace orivanta::viewer
