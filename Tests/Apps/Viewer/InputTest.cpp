#include "Apps/Viewer/Input.hpp"

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "Apps/Viewer/KeyText.hpp"
#include "Apps/Viewer/Window.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"

namespace orivanta::viewer {

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

// Covers everything and records when and where it is touched.
class TouchRecord : public view::View {
 public:
  void touchesBegan(std::span<const view::Touch> touches) override { note(touches); }
  void touchesMoved(std::span<const view::Touch> touches) override { note(touches); }
  void touchesEnded(std::span<const view::Touch> touches) override { note(touches); }

  std::vector<double> times;
  std::vector<graphics::Point> places;

 private:
  void note(std::span<const view::Touch> touches) {
    for (const view::Touch& touch : touches) {
      times.push_back(touch.time);
      places.push_back(touch.position);
    }
  }
};

// A hidden window, and a viewer that cannot reach a server.
class InputTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { test::keepDriverLoaded(); }

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

  std::shared_ptr<TouchRecord> recordTouches() const {
    auto touched = std::make_shared<TouchRecord>();
    touched->setFrame(viewer.root()->bounds());
    viewer.root()->addSubview(touched);
    return touched;
  }

  static void press(SDL_Keycode code, SDL_Scancode place = SDL_SCANCODE_UNKNOWN) {
    push(SDL_KEYDOWN, [&](SDL_Event& event) { event.key.keysym = {place, code, 0, 0}; });
  }

  static void type(SDL_Keycode letter) {
    press(letter);
    push(SDL_TEXTINPUT, [&](SDL_Event& event) { event.text.text[0] = static_cast<char>(letter); });
  }

  test::DiagnosticLines quiet;
  test::EnvironmentVariable driver{"SDL_VIDEODRIVER", "offscreen"};
  std::unique_ptr<render::WindowSurface> surface =
      render::WindowSurface::make({"Input", {400, 500}, 1}).value();
  Viewer viewer{{test::settingsFor("http://127.0.0.1:9/"), "astrolabe-court", {}}};
  double time = 0;
  Input input{viewer, *surface, [this] { return time; }};
};

}  // namespace

TEST_F(InputTest, TellsTheTimeAtWhichSomethingCameInNotThatOfFallingAsleep) {
  const auto touched = recordTouches();
  const auto clock = [] { return SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) ? 0.0 : 10.0; };
  Input sleeper(viewer, *surface, clock);
  for (const Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
    push(type, [](SDL_Event& event) {
      event.button.button = SDL_BUTTON_LEFT;
      event.button.clicks = 1;
      event.button.x = event.button.y = 100;
    });
    sleeper.take(endless);
  }
  EXPECT_EQ(touched->times, (std::vector<double>{10, 10}));
}

TEST_F(InputTest, FingersTouchWhereTheyAreOnTheScreen) {
  const auto touched = recordTouches();
  for (const Uint32 type : {SDL_FINGERDOWN, SDL_FINGERMOTION, SDL_FINGERUP}) {
    for (const int finger : {0, 1})
      push(type, [&](SDL_Event& event) {
        event.tfinger.touchId = 1;
        event.tfinger.fingerId = finger;
        event.tfinger.x = finger == 0 ? 0.25F : 0.75F;
        event.tfinger.y = type == SDL_FINGERDOWN ? 0.5F : 0.125F;
      });
    input.take(0);
  }
  EXPECT_EQ(touched->places,
            (std::vector<graphics::Point>{
                {100, 250}, {300, 250}, {100, 62.5}, {300, 62.5}, {100, 62.5}, {300, 62.5}}));
}

TEST_F(InputTest, TextComesInWhileTheSearchFieldIsOpenAndShortcutsWhileItIsNot) {
  const auto server = test::serveDemo();
  test::ViewerStage stage(server->root(), "astrolabe-court", surface->size());
  Input keys(stage.viewer, *surface, [] { return 0.0; });
  EXPECT_FALSE(SDL_IsTextInputActive());
  stage.untilShown();
  SearchPanel& search = *stage.viewer.venueView()->panels().search;
  press(SDLK_SLASH);
  press(SDLK_d);  // before the text input has started
  keys.take(endless);
  EXPECT_TRUE(SDL_IsTextInputActive());
  EXPECT_EQ(search.field().text(), "d");
  type(SDLK_o);
  type(SDLK_s);
  keys.take(0);
  EXPECT_EQ(search.field().text(), "dos");
  press(SDLK_ESCAPE);
  type(SDLK_SLASH);
  keys.take(0);
  EXPECT_TRUE(search.isOpen());
  EXPECT_EQ(search.field().text(), "") << "the slash is a shortcut and not text";
  search.close();
  press(SDLK_KP_PLUS);
  keys.take(0);
  EXPECT_FALSE(SDL_IsTextInputActive());
  EXPECT_TRUE(stage.viewer.venueView()->camera().isGliding());
}

TEST(KeyTextTest, FindsShortcutsOnManyKeyboards) {
  constexpr SDL_Keycode sharpS = 0xDF;
  constexpr SDL_Keycode russianA = 0x430;
  struct Case {
    const char* text;
    SDL_Scancode place;
    SDL_Keycode code;
    bool shift;
    bool hasSlashKey;
  };
  for (const Case& each : {Case{"/", SDL_SCANCODE_SLASH, SDLK_SLASH, false, true},
                           {"?", SDL_SCANCODE_SLASH, SDLK_SLASH, true, true},
                           {"", SDL_SCANCODE_7, SDLK_7, true, true},
                           {"-", SDL_SCANCODE_MINUS, SDLK_MINUS, true, true},
                           {"+", SDL_SCANCODE_EQUALS, SDLK_EQUALS, true, true},
                           {"?", SDL_SCANCODE_MINUS, sharpS, true, false},            // German
                           {"/", SDL_SCANCODE_7, SDLK_7, true, false},                // German
                           {"-", SDL_SCANCODE_SLASH, SDLK_MINUS, false, false},       // German
                           {"+", SDL_SCANCODE_RIGHTBRACKET, SDLK_PLUS, true, false},  // German
                           {"?", SDL_SCANCODE_MINUS, SDLK_PLUS, true, false},         // Swedish
                           {"+", SDL_SCANCODE_MINUS, SDLK_PLUS, false, false},        // Swedish
                           {"?", SDL_SCANCODE_M, SDLK_COMMA, true, false},            // French
                           {"", SDL_SCANCODE_MINUS, SDLK_RIGHTPAREN, true, false},    // French
                           {"f", SDL_SCANCODE_F, SDLK_f, true, true},
                           {"i", SDL_SCANCODE_I, SDLK_i, false, true},
                           {"w", SDL_SCANCODE_W, SDLK_w, false, true},
                           {"f", SDL_SCANCODE_F, russianA, false, false},
                           {"", SDL_SCANCODE_LEFT, SDLK_LEFT, false, true}}) {
    const SDL_Keysym key{each.place, each.code, each.shift ? Uint16{KMOD_LSHIFT} : Uint16{0}, 0};
    EXPECT_EQ(shortcutOf(key, each.hasSlashKey), each.text) << SDL_GetScancodeName(each.place);
  }
}

TEST(WindowSurfaceTest, WithoutAScreenThereIsNoWindow) {
  if (std::filesystem::exists("/dev/dri/card0"))
    GTEST_SKIP() << "the machine may have a screen without a display server";
  const test::EnvironmentVariable x("DISPLAY", std::nullopt);
  const test::EnvironmentVariable wayland("WAYLAND_DISPLAY", "nowhere");
  const test::EnvironmentVariable driver("SDL_VIDEODRIVER", std::nullopt);
  const auto made = render::WindowSurface::make({"Nowhere", {400, 500}, 1});
  ASSERT_FALSE(made);
  EXPECT_THAT(made.error().description, testing::StartsWith("no screen is available"));
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
  viewer::Times times(nullptr);
  const auto ignore = [](std::string_view) {};
  runWindow(viewer, *surface, times, {ignore, ignore});
  EXPECT_GT(countWhenHidden, 0);
}

}  // namespace orivanta::viewer
