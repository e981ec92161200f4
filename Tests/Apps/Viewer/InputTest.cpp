#include "Apps/Viewer/Input.hpp"

#include <SDL.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Window.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"

namespace orivanta::viewer {

namespace {

// Covers everything and writes down when it is touched.
class TouchTimes : public view::View {
 public:
  void touchesBegan(std::span<const view::Touch> touches) override { note(touches); }
  void touchesEnded(std::span<const view::Touch> touches) override { note(touches); }

  std::vector<double> times;

 private:
  void note(std::span<const view::Touch> touches) {
    for (const view::Touch& touch : touches) times.push_back(touch.time);
  }
};

// A window that nobody sees, and a viewer that finds no server.
class InputTest : public testing::Test {
 protected:
  InputTest() {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    viewer.resize(surface->size(), 1);
  }

  static void push(Uint32 type, const std::function<void(SDL_Event&)>& fill = {}) {
    SDL_Event event{};
    event.type = type;
    if (fill) fill(event);
    SDL_PushEvent(&event);
  }

  test::DiagnosticLines quiet;
  test::EnvironmentVariable driver{"SDL_VIDEODRIVER", "offscreen"};
  std::unique_ptr<render::WindowSurface> surface =
      std::get<0>(render::WindowSurface::make({"Input", {400, 500}, 1}));
  Viewer viewer{{test::settingsFor("http://127.0.0.1:9/"), "astrolabe-court"}};
  double time = 0;
  Input input{viewer, *surface, [this] { return time; }};
};

}  // namespace

TEST_F(InputTest, TellsTheTimeAtWhichSomethingCameInNotThatOfFallingAsleep) {
  const auto touched = std::make_shared<TouchTimes>();
  touched->setFrame(viewer.root()->bounds());
  viewer.root()->addSubview(touched);
  const auto clock = [] { return SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) ? 0.0 : 10.0; };
  Input sleeper(viewer, *surface, clock);
  for (const Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
    push(type, [](SDL_Event& event) {
      event.button.button = SDL_BUTTON_LEFT;
      event.button.clicks = 1;
      event.button.x = event.button.y = 100;
    });
    sleeper.take(/*wait=*/true);
  }
  EXPECT_EQ(touched->times, (std::vector<double>{10, 10}));
}

TEST_F(InputTest, NothingIsDrawnWhileTheWindowIsHidden) {
  class Counter : public view::View {
   public:
    void draw(view::Canvas& /*canvas*/) override { ++count; }
    int count = 0;
  };
  const auto drawn = std::make_shared<Counter>();
  drawn->setFrame(viewer.root()->bounds());
  viewer.root()->addSubview(drawn);
  int turn = 0;
  int countWhenHidden = 0;
  const auto end = std::chrono::steady_clock::now() + test::patience;
  const std::function<void()> next = [&] {
    if (turn == 1) {
      countWhenHidden = drawn->count;
      SDL_HideWindow(surface->window());
    }
    if (turn == 5) {
      EXPECT_EQ(drawn->count, countWhenHidden);
      SDL_ShowWindow(surface->window());
    }
    const bool isLate = std::chrono::steady_clock::now() > end;
    EXPECT_FALSE(isLate);
    if (isLate || (turn > 5 && drawn->count > countWhenHidden)) return push(SDL_QUIT);
    ++turn;
    foundation::mainQueue::async(next);
  };
  foundation::mainQueue::async(next);
  viewer::Times times(/*isEnabled=*/false);
  runWindow(viewer, *surface, times);
  EXPECT_GT(countWhenHidden, 0);
}

}  // namespace orivanta::viewer
