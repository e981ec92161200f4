#include "Apps/Command/Render/Stage.hpp"

#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Apps/Command/Render/FloorProgress.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

// Tells the wait for the floors that it is over.
class LoadedFlag : public MapViewDelegate {
 public:
  void mapViewDidLoad() override { loaded = true; }
  void polygonSelected(const std::shared_ptr<Polygon>&) override {}
  void nothingSelected() override {}

  bool loaded = false;
};

constexpr graphics::Color background{0.945F, 0.953F, 0.961F};

std::unique_ptr<render::OffscreenSurface> makeSurface(graphics::Size size, double scale) {
  auto surface =
      render::OffscreenSurface::make(static_cast<std::uint32_t>(std::lround(size.width * scale)),
                                     static_cast<std::uint32_t>(std::lround(size.height * scale)));
  if (const auto* error = std::get_if<foundation::Error>(&surface))
    throw CommandError(ExitCode::outputFailed,
                       fmt::format("this machine cannot draw: {}", error->description));
  return std::move(std::get<0>(surface));
}

}  // namespace

Stage::Stage(graphics::Size size, double scale)
    : size_(size),
      scale_(scale),
      surface_(makeSurface(size, scale)),
      renderer_(std::make_unique<render::Renderer>()),
      mapView_(MapView::make({{0, 0}, size})) {
  mapView_->sceneView->setBackgroundColor(background);
  mapView_->layoutIfNeeded();
}

void Stage::load(const std::shared_ptr<Venue>& venue) {
  const auto flag = std::make_shared<LoadedFlag>();
  mapView_->venue = venue;
  mapView_->delegate = flag;
  mapView_->downloader = std::make_shared<ReportingDownloader>(*venue);
  mapView_->loadScene();
  while (!flag->loaded) {
    foundation::mainQueue::wait(1.0);
    foundation::mainQueue::drain();
  }
  ProgressLine::standardError().clear();
}

std::shared_ptr<const graphics::Image> Stage::picture(double time) {
  surface_->makeCurrent();
  renderer_->render(*mapView_, size_, scale_, time, surface_->framebuffer());
  return surface_->read(scale_);
}

}  // namespace orivanta::command
