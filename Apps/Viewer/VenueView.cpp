#include "Apps/Viewer/VenueView.hpp"

#include <ctime>
#include <utility>

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
      mapView_(MapView::make()),
      labels_(std::make_unique<LabelLayer>(mapView_, 1.0)),
      session_(venue_, texts, clock_),
      display_(mapView_),
      walk_(mapView_, display_),
      closureMarks_(mapView_, texts.text("interface.mark.closed")),
      panels_(*venue_, texts) {
  mapView_->venue = venue_;
  mapView_->allowsSimultaneousGestures = true;
  mapView_->sceneView->setBackgroundColor(theme::backdrop);
  addSubview(mapView_);
  panels_.addTo(*this);
}

// --- Layout

void VenueView::arrange(graphics::Size size, double scale) {
  const bool isResized = !(size == bounds().size);
  const bool isRescaled = std::exchange(scale_, scale) != scale;
  setFrame({{0, 0}, size});
  resizeMap(isResized);
  arrangePanels();
  if (isLoaded_ && (isResized || isRescaled)) showAnew();
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
  camera().setPose(camera().pose());
}

void VenueView::arrangePanels() {
  const graphics::Size size = bounds().size;
  if (size.width <= 0) return;
  panels_.arrange(
      size,
      {.place = selected_ != nullptr, .route = session_.hasStops(), .wayBack = wayBack != nullptr});
  camera().setInsets(panels_.insets());
  labels_->setCovered(panels_.covered());
}

// --- Time

bool VenueView::isMoving() const {
  if (!isLoaded_) return false;
  return hasNamesToDraw_ || walk_.isMoving() || awaitedFloor_ ||
         (!isHidden() && mapView_->isAnimating());
}

void VenueView::advance(double time) {
  if (walk_.walker()) walk(time);
  camera().advance(time);
  if (!isLoaded_) return;
  display_.arrange();
  hasNamesToDraw_ = labels_->arrange();
  lastPose_ = camera().pose();
}

}  // namespace orivanta::viewer
