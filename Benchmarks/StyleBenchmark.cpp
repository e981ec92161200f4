// Draws frames of a styled map with 2,000 places at 1280 by 800 pixels, and the same map without a
// style. Measures processor time of all threads, because a software driver uses several.

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <array>
#include <cmath>
#include <vector>

#include "Benchmarks/ThreadTimes.hpp"
#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/Styled/LabelView.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::benchmarks {
namespace {

constexpr int columns = 50;
constexpr int rows = 40;
constexpr int sides = 26;
constexpr graphics::Size pictureSize{1280, 800};

// A venue with one floor, whose rooms are 5 meters wide.
std::shared_ptr<Venue> makeVenue() {
  constexpr std::array types{"shop", "restaurant", "toilet", "office", "cafe", "atm", "cinema"};
  auto venue = Venue::make(
      *RawData::parse(R"({"id": "v", "slug": "wide", "name": "Wide", "unitsPerMetre": 6})"));
  auto floor = Map::make(*RawData::parse(R"({"id": "g", "name": "Ground"})"));
  floor->mapObject = test::makeSyntheticFloor(columns, rows, sides);
  venue->maps = {floor};
  venue->polygonDictionary.emplace();
  venue->locations.emplace();
  int number = 0;
  for (const auto& shape : floor->mapObject->children()) {
    const std::string id = fmt::format("room-{}", number);
    shape->setName(id);
    auto polygon = Polygon::make(*RawData::parse(fmt::format(R"({{"id": "{}"}})", id)));
    polygon->map = floor;
    auto place = Location::make(*RawData::parse(
        fmt::format(R"({{"id": "{}", "name": "House of Number {}", "type": "{}"}})", id, number,
                    types[static_cast<std::size_t>(number) % types.size()])));
    place->polygons.push_back(polygon);
    polygon->locations.push_back(place);
    venue->polygonDictionary->insert({id, polygon});
    venue->locations->push_back(place);
    ++number;
  }
  return venue;
}

// Draws nothing.
class BlankCanvas : public view::Canvas {
 public:
  explicit BlankCanvas(double time) : time_(time) {}
  double time() const override { return time_; }
  double scale() const override { return 1; }
  void fill(const graphics::Rect&, const graphics::Color&, double) override {}
  void draw(const std::shared_ptr<const graphics::Image>&, const graphics::Rect&, double,
            double) override {}
  void draw(const std::shared_ptr<graphics::Sheet>&, std::span<const view::SheetPiece>) override {}
  void draw(view::SceneView&, const graphics::Rect&) override {}

 private:
  double time_;
};

class StyledStage {
 public:
  StyledStage(std::unique_ptr<render::OffscreenSurface> surface, bool isStyled)
      : surface_(std::move(surface)) {
    foundation::setDiagnosticSink([](std::string_view) {});
    view->venue = makeVenue();
    view->layoutIfNeeded();
    if (isStyled) view->setStyle(style);
    view->startScene();
    view->camera().fit();
    view->camera().zoomBy(3, {640, 400});
    // The images of the names are made while the first frames are drawn.
    for (int i = 0; i < 60; ++i) {
      draw();
      foundation::mainQueue::drain();
      style->finish();
    }
  }

  void draw() {
    renderer_.render(*view, pictureSize, 1.0, time += 1.0 / 60, surface_->framebuffer());
    benchmark::DoNotOptimize(surface_->read());
  }

  const render::FrameStatistics& statistics() const { return renderer_.statistics(); }

  std::shared_ptr<MapView> view = MapView::make({{0, 0}, pictureSize});
  std::shared_ptr<MapStyle> style = MapStyle::make();
  double time = 0;

 private:
  std::unique_ptr<render::OffscreenSurface> surface_;
  render::Renderer renderer_;
};

template <class Act>
void onStage(benchmark::State& state, bool isStyled, const Act& act) {
  auto surface = render::OffscreenSurface::make(1280, 800);
  if (!surface) return state.SkipWithError(surface.error().description.c_str());
  StyledStage stage(std::move(*surface), isStyled);
  act(stage);
}

// The camera pans back and forth, so that all frames draw the same amount.
void frames(benchmark::State& state, bool isStyled) {
  onStage(state, isStyled, [&](StyledStage& stage) {
    double step = 12;  // points
    for (auto _ : state) {
      stage.view->camera().panBy(step, 0);
      stage.draw();
      step = -step;
    }
    state.counters["triangles"] = stage.statistics().triangles;
    state.counters["draws"] = stage.statistics().drawCalls;
  });
}

void styled(benchmark::State& state) { frames(state, true); }
BENCHMARK(styled)->Name("Frame.styled")->MeasureProcessCPUTime();

void unstyled(benchmark::State& state) { frames(state, false); }
BENCHMARK(unstyled)->Name("Frame.unstyled")->MeasureProcessCPUTime();

// What a view of labels does in a frame, on the thread that draws: projecting, placing, and looking
// up the images, which other threads make.
void withPictures(benchmark::State& state) {
  onStage(state, true, [&](StyledStage& stage) {
    std::shared_ptr<view::View> labels;
    for (const auto& child : stage.view->subviews())
      if (dynamic_cast<LabelView*>(child.get()) != nullptr) labels = child;
    ThreadTimes times(state);
    for (auto _ : state) {
      const double angle = static_cast<double>(times.count()) * 0.01;
      stage.view->camera().panBy(8 * std::cos(angle), 8 * std::sin(angle));
      stage.view->camera().zoomBy(1 + 0.004 * std::cos(3 * angle), {640, 400});
      stage.view->camera().rotateBy(0.003);
      BlankCanvas canvas(stage.time += 1.0 / 60);
      const graphics::Transaction transaction;
      times.measure([&] { labels->draw(canvas); });
    }
    times.report();
  });
}
BENCHMARK(withPictures)->Name("Labels.withPictures")->UseManualTime()->Iterations(1800);

}  // namespace
}  // namespace orivanta::benchmarks
