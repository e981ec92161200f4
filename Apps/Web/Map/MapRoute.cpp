#include "Apps/Web/Map/MapRoute.hpp"

#include <utility>

namespace orivanta::web {

void MapRoute::set(ShownRoute route) {
  overlay_.reset();
  if (route.path.empty()) return;
  overlay_ = std::make_unique<RouteOverlay>(mapView_, std::move(route.path), std::move(route.from),
                                            std::move(route.to));
  overlay_->start = overlay_->destination = "";  // if they are no places
  overlay_->stops = std::move(route.stops);
  overlay_->color = route.color;
  if (mapView_->currentMap()) overlay_->show(scale_);
}

void MapRoute::redraw(double scale) {
  scale_ = scale;
  if (overlay_ && mapView_->currentMap()) overlay_->show(scale);
}

void MapRoute::arrange() {
  if (overlay_) overlay_->arrange();
}

void MapRoute::setPassed(const Map& floor, graphics::Vector3 position) {
  if (overlay_) overlay_->setPassed(floor, position);
}

void MapRoute::clearPassed() {
  if (overlay_) overlay_->clearPassed();
}

void MapRoute::frame(CameraMotion motion) {
  if (!overlay_ || !mapView_->currentMap()) return;
  if (const FloorVisit* visit = overlay_->firstVisitTo(*mapView_->currentMap()))
    mapView_->camera().frame(overlay_->pointsOf(*visit), aroundRoute(*mapView_), motion);
}

}  // namespace orivanta::web
