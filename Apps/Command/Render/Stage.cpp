#include "Apps/Command/Render/Stage.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr graphics::Color background{0.945F, 0.953F, 0.961F};

std::unique_ptr<render::OffscreenSurface> makeSurface(graphics::Size size, double scale) {
  auto surface =
      render::OffscreenSurface::make(static_cast<std::uint32_t>(std::lround(size.width * scale)),
                                     static_cast<std::uint32_t>(std::lround(size.height * scale)));
  if (!surface)
    throw CommandError(ExitCode::outputFailed,
                       fmt::format("cannot draw on this machine: {}", surface.error().description));
  return std::move(*surface);
}

std::vector<FloorProgress> pick(const std::vector<FloorProgress>& all,
                                const std::vector<std::shared_ptr<Map>>& floors) {
  std::vector<FloorProgress> picked;
  for (const auto& floor : floors) {
    const auto entry = std::find_if(all.begin(), all.end(), [&](const FloorProgress& progress) {
      return progress.map == floor;
    });
    if (entry != all.end()) picked.push_back(*entry);
  }
  return picked;
}

bool isDone(const FloorProgress& floor) {
  return floor.state == FloorState::ready || floor.state == FloorState::withoutModel ||
         floor.state == FloorState::failed;
}

void showProgress(const std::vector<FloorProgress>& floors) {
  std::size_t filesDone = 0;
  std::size_t fileCount = 0;
  for (const FloorProgress& floor : floors) {
    filesDone += floor.filesDone;
    fileCount += floor.fileCount;
  }
  ProgressLine::standardError().show(
      fmt::format("Loading floors: {} of {} files", filesDone, fileCount),
      ProgressLine::Clock::now());
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

std::vector<FloorProgress> Stage::load(const std::shared_ptr<Venue>& venue,
                                       const std::vector<std::shared_ptr<Map>>& floors) {
  mapView_->venue = venue;
  const auto load = mapView_->loadFloors({}, floors.empty() ? nullptr : floors.front());
  std::vector<FloorProgress> wanted = pick(load->floors(), floors);
  while (!std::all_of(wanted.begin(), wanted.end(), isDone)) {
    showProgress(wanted);
    foundation::mainQueue::wait(1.0);
    foundation::mainQueue::drain();
    wanted = pick(load->floors(), floors);
  }
  load->cancel();
  ProgressLine::standardError().clear();
  return wanted;
}

std::shared_ptr<const graphics::Image> Stage::picture(double time) {
  if (const auto& style = mapView_->style()) style->finish();
  surface_->makeCurrent();
  renderer_->render(*mapView_, size_, scale_, time, surface_->framebuffer());
  return surface_->read(scale_);
}

}  // namespace orivanta::command
