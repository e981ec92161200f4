#include "Apps/Web/Map/MapHost.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Web/Map/PageFunctions.hpp"
#include "Platform/Foundation/Screen.hpp"
#include "Platform/View/ImageView.hpp"
#include "Source/Location.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

constexpr double startTilt = 0.6;    // radians
constexpr double uprightTilt = 0.3;  // in a canvas that is higher than wide

bool isShown(const CanvasSize& canvas) { return canvas.size.width > 0 && canvas.size.height > 0; }

}  // namespace

foundation::Result<std::shared_ptr<MapHost>> MapHost::make(int number, LoadedVenue& venue,
                                                           int canvas) {
  auto surface = render::CanvasSurface::make(canvas);
  if (!surface) return foundation::failure(surface.error());
  const std::shared_ptr<MapHost> made(new MapHost(number, venue, std::move(*surface)));
  made->mapView_->delegate = made;
  return made;
}

MapHost::MapHost(int number, LoadedVenue& venue, std::unique_ptr<render::CanvasSurface> surface)
    : number_(number),
      venue_(venue),
      events_(number),
      surface_(std::move(surface)),
      renderer_(std::make_unique<render::Renderer>()),
      mapView_(MapView::make()),
      downloader_(std::make_shared<PageDownloader>()),
      style_(MapStyle::make()),
      input_(mapView_),
      floors_(mapView_, events_, [this](const auto& floor) { return venue_.indexOf(floor); }),
      route_(mapView_),
      markers_(mapView_) {
  mapView_->venue = venue.sharedVenue();
  mapView_->downloader = downloader_;
  mapView_->allowsSimultaneousGestures = true;
  style_->setFurniture(look_.furniture);
  mapView_->setStyle(style_);
  style_->tapped = [this](const MapTap& tap) { tapped(tap); };
  floors_.changed = [this] { floorChanged(); };
  floors_.othersNeeded = [this] { loadOtherFloors(); };
}

// What is drawn is released while its context is current.
MapHost::~MapHost() {
  surface_->makeCurrent();
  style_->tapped = nullptr;
  mapView_->setStyle(nullptr);
  renderer_.reset();
}

void MapHost::load(std::shared_ptr<Map> first) {
  if (!first) first = MapStyle::firstFloor(venue_.venue(), style_->theme()->words);
  loadOtherFloors();
  if (first && !floors_.isLoaded()) downloader_->hold(venue_.venue(), *first);
  floors_.load(first);
}

void MapHost::mapViewDidLoad() {
  const bool isFirst = !floors_.isLoaded();
  const CameraPose pose = camera().pose();
  floors_.firstFloorLoaded();
  if (!isFirst) return camera().setPose(pose);
  route_.redraw(canvas_.scale);
  showFirstView();
  events_.report("loaded");
}

// Before the canvas has a size there is nothing to frame.
void MapHost::showFirstView() {
  if (hasFirstView_ || !floors_.isLoaded() || !isShown(canvas_)) return;
  hasFirstView_ = true;
  const graphics::Size size = canvas_.size;
  camera().tiltTo(size.width < size.height ? uprightTilt : startTilt);
  style_->showFirstView();
}

void MapHost::resize(const CanvasSize& canvas) {
  if (canvas == canvas_) return;
  canvas_ = canvas;
  foundation::setMainScreenScale(canvas.scale);
  mapView_->setFrame({{0, 0}, canvas.size});
  mapView_->layoutIfNeeded();
  mapView_->renewOverlay();
  if (!floors_.isLoaded()) return;
  showFirstView();
  route_.redraw(canvas.scale);
  markers_.arrange(canvas.scale);
  camera().setPose(camera().pose());
  if (then_ && isShown(canvas_)) std::exchange(then_, nullptr)();
}

void MapHost::frame(const CanvasSize& canvas, double time) {
  resize(canvas);
  input_.deliver();
  isChanged_ = false;
  if (!renderer_ || !floors_.isLoaded() || !isShown(canvas_)) return;
  camera().advance(time);
  route_.arrange();
  surface_->makeCurrent();
  renderer_->render(*mapView_, canvas_.size, canvas_.scale, time);
  reportChanges();
}

void MapHost::reportChanges() {
  floors_.check();
  if (const CameraPose pose = camera().pose(); !(pose == pose_)) {
    pose_ = pose;
    events_.report("camera");
  }
  if (const bool isReady = style_->isReady(); isReady != isReady_) {
    isReady_ = isReady;
    if (!isReady) return;
    loadOtherFloors();
    events_.report("ready");
  }
}

bool MapHost::whenVisible(std::function<void()> then) {
  if (isShown(canvas_)) return false;
  then_ = std::move(then);
  return true;
}

bool MapHost::needsFrame() const {
  if (isChanged_ || input_.isWaiting()) return true;
  return renderer_ && floors_.isLoaded() && isShown(canvas_) &&
         (mapView_->isAnimating() || mapView_->needsFrame());
}

void MapHost::requestFrame() const {
  if (needsFrame()) orivantaMapWantsFrame(number_);
}

void MapHost::contextLost() {
  surface_->makeCurrent();
  renderer_.reset();
}

void MapHost::contextRestored() {
  surface_->makeCurrent();
  renderer_ = std::make_unique<render::Renderer>();
  isChanged_ = true;
}

void MapHost::setLook(const MapLook& look) {
  look.apply(look_, *style_, camera());
  look_ = look;
  if (floors_.isLoaded()) markers_.arrange(canvas_.scale);
}

void MapHost::setCovered(std::vector<graphics::Rect> covered) {
  for (const auto& child : mapView_->subviews())
    if (dynamic_cast<view::ImageView*>(child.get()) != nullptr)
      child->setHidden(std::any_of(covered.begin(), covered.end(), [&](const auto& rect) {
        return rect.intersects(child->frame());
      }));
  style_->setCovered(std::move(covered));
}

// Images belong to a theme, so they are drawn again for a copy of it.
void MapHost::redrawTexts() {
  style_->setTheme(std::make_shared<const MapTheme>(*style_->theme()));
  if (!floors_.isLoaded()) return;
  route_.redraw(canvas_.scale);
  markers_.arrange(canvas_.scale);
}

void MapHost::floorChanged() {
  showFirstView();
  route_.arrange();
  markers_.arrange(canvas_.scale);
}

// A tap on an area hides the markers.
void MapHost::tapped(const MapTap& tap) {
  mapView_->updateMarkerVisibility();
  floors_.check();
  if (tap.isFloorChange) return;
  const graphics::Point at = input_.lastPoint();
  const auto ground = groundUnder(camera().pose(), camera().lens(), at);
  events_.report("tap", {{"place", tap.place ? json::value(*tap.place->id) : json::value()},
                         {"floor", venue_.indexOf(tap.floor)},
                         {"x", at.x},
                         {"y", at.y},
                         {"position", ground ? json::value{ground->x, ground->y, camera().pose().z}
                                             : json::value()}});
}

}  // namespace orivanta::web
