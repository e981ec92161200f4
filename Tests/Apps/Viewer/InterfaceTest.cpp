// The interface in windows of many sizes, in several languages, sizes of text and looks.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <vector>

#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Map.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::viewer {

namespace {

using graphics::Rect;

// The thread sanitizer would need minutes for all of them, and finds nothing more in the others.
#if defined(__SANITIZE_THREAD__)
const std::vector<graphics::Size> usualWindows{{390, 844}};
const std::vector<graphics::Size>& allWindows = usualWindows;
#else
const std::vector<graphics::Size> usualWindows{{390, 844}, {1280, 800}};
const std::vector<graphics::Size> allWindows{
    {390, 844}, {768, 1024}, {1080, 1920}, {1280, 800}, {3840, 2160}};
#endif

// Draws nothing. Views place their parts while they draw.
class BlankCanvas : public view::Canvas {
 public:
  double time() const override { return 0; }
  double scale() const override { return 1; }
  void fill(const Rect&, const graphics::Color&, double) override {}
  void draw(const std::shared_ptr<const graphics::Image>&, const Rect&, double, double) override {}
  void draw(view::SceneView&, const Rect&) override {}
};

class InterfaceTest : public testing::Test {
 protected:
  // Draws a view and its descendants, and checks each text and each control.
  static void check(view::View& view, const std::string& name) {
    if (view.isHidden() || dynamic_cast<MapView*>(&view) != nullptr) return;
    BlankCanvas canvas;
    view.draw(canvas);
    const graphics::Size size = view.bounds().size;
    const auto* label = dynamic_cast<const Label*>(&view);
    if (label != nullptr && label->isCut())
      ADD_FAILURE() << name << ": \"" << label->text() << "\" in " << size.width << " x "
                    << size.height;
    const auto* pressable = dynamic_cast<const Pressable*>(&view);
    if (pressable != nullptr && pressable->action != nullptr) {
      EXPECT_GE(size.width, theme::controlSize - 0.01) << name;
      EXPECT_GE(size.height, theme::controlSize - 0.01) << name;
    }
    for (const auto& child : view.subviews()) check(*child, name);
  }

  // Checks that the panels are inside the window, and that only a sheet and its parts overlap.
  static void checkPlaces(const VenueView& view, graphics::Size window, const std::string& name) {
    const VenuePanels& panels = view.panels();
    std::vector<view::View*> shown;
    for (view::View* panel : view.inReadingOrder())
      if (!panel->isHidden()) shown.push_back(panel);
    const std::set<view::View*> sheet{panels.handle.get(), panels.card.get(), panels.route.get()};
    for (const view::View* one : shown) {
      const Rect a = one->frame();
      EXPECT_TRUE(a.minX() >= 0 && a.minY() >= 0 && a.maxX() <= window.width &&
                  a.maxY() <= window.height + 0.01)
          << name << ": " << a.minX() << " " << a.minY() << " " << a.maxX() << " " << a.maxY();
      for (view::View* other : shown) {
        const Rect b = other->frame();
        if (one >= other || (sheet.count(other) == 1 && sheet.count(const_cast<view::View*>(one))))
          continue;
        EXPECT_FALSE(a.minX() < b.maxX() && b.minX() < a.maxX() && a.minY() < b.maxY() &&
                     b.minY() < a.maxY())
            << name << ": panels overlap";
      }
    }
  }

  // Shows a state in windows of some sizes and in all sizes of text. Saves pictures for people to
  // look at if ORIVANTA_PICTURES names a folder.
  static void checkState(test::ViewerStage& stage, const std::vector<graphics::Size>& windows,
                         const std::string& state) {
    const char* const folder = std::getenv("ORIVANTA_PICTURES");
    for (const graphics::Size window : windows)
      for (const int percent : {100, 200}) {
        const std::string name =
            fmt::format("{}-{}x{}-{}", state, window.width, window.height, percent);
        stage.size = window;
        theme::Look look = stage.viewer.look();
        look.textScale = percent / 100.0;
        stage.viewer.setLook(look);
        stage.viewer.resize(window, 1);
        check(*stage.viewer.root(), name);
        if (stage.viewer.venueView()) checkPlaces(*stage.viewer.venueView(), window, name);
        if (folder == nullptr) continue;
        stage.settle();
        if (stage.viewer.venueView()) {
          stage.viewer.venueView()->mapView().style()->setStill(true);
          stage.viewer.venueView()->mapView().style()->finish();
        }
        EXPECT_TRUE(graphics::writePng(*stage.picture(), fmt::format("{}/{}.png", folder, name)));
      }
  }

  test::TemporaryFolder caches;
  test::EnvironmentVariable home{"XDG_CACHE_HOME", caches.path().string()};
  test::EnvironmentVariable noShaderCache{"MESA_SHADER_CACHE_DISABLE", "true"};
  std::unique_ptr<server::VenueServer> server = test::serveDemo();
};

}  // namespace

TEST_F(InterfaceTest, FitsEveryWindowInEveryDirectionAndSizeOfText) {
  struct Case {
    const char* language;
    theme::Look look;
    const std::vector<graphics::Size>& windows = usualWindows;
  };
  // The words of German are the longest, and Arabic is written from right to left.
  for (const auto& [language, look, windows] : {Case{"en", {}},
                                                {"de", {.isDark = true}, allWindows},
                                                {"ar", {.hasHighContrast = true}, allWindows},
                                                {"fr", {}},
                                                {"ja", {.isDark = true}}}) {
    test::ViewerStage stage({.settings = test::settingsFor(server->root()),
                             .slug = std::nullopt,
                             .languages = language,
                             .clock = [] { return test::ViewerStage::noon; },
                             .look = look,
                             .theme = look.isDark ? MapTheme::dark() : MapTheme::light()});
    stage.until([&] { return stage.viewer.venueList().size() > 0; });
    const auto state = [&, &shown = windows](const char* name) {
      checkState(stage, shown, fmt::format("{}-{}", name, stage.viewer.texts().language()));
    };
    state("venues");
    stage.viewer.venueList().chooseMarked();
    VenueView& view = stage.untilShown();
    state("start");
    view.toggleHelp();
    state("keys");
    view.toggleHelp();
    view.panels().search->open();
    stage.until([&] { return view.panels().search->list().size() > 0; });
    state("search");
    view.panels().search->close();
    view.select(stage.place("dosa-dynamo"));
    state("place");
    view.select(nullptr);
    stage.untilPlanned("tamarisk-row", "dosa-dynamo");
    state("route");
    view.panels().handle->moved(1);
    state("route-full");
  }
}

TEST_F(InterfaceTest, KeysReachEverythingInReadingOrder) {
  for (const bool isPhone : {false, true}) {
    test::ViewerStage stage(server->root(), std::nullopt,
                            isPhone ? graphics::Size{390, 844} : graphics::Size{1280, 800});
    const auto press = [&](Key key, bool shift = false) { stage.viewer.keyPressed({key, shift}); };
    stage.until([&] { return stage.viewer.venueList().size() > 0; });
    press(Key::tab);
    press(Key::space);  // on the first row
    VenueView& view = stage.untilShown();
    stage.untilPlanned("tamarisk-row", "dosa-dynamo");
    const VenuePanels& panels = view.panels();

    const auto controls = controlsOf(panels.inReadingOrder());
    ASSERT_GT(controls.size(), 10U);
    std::vector<std::shared_ptr<view::View>> reached;
    for (std::size_t i = 0; i < controls.size(); ++i) {
      press(Key::tab);
      reached.push_back(stage.viewer.focus().focused());
      const auto ring = stage.viewer.focus().focusedRect();
      ASSERT_TRUE(ring) << i;
      EXPECT_TRUE(stage.viewer.root()->bounds().contains({ring->midX(), ring->midY()})) << i;
    }
    EXPECT_EQ(reached, controls);
    EXPECT_EQ(reached.front(), panels.back);
    EXPECT_EQ(reached[1].get(), &panels.search->field());
    press(Key::tab);
    EXPECT_EQ(stage.viewer.focus().focused(), controls.front()) << "from the last one to the first";
    press(Key::tab, /*shift=*/true);
    EXPECT_EQ(stage.viewer.focus().focused(), controls.back());

    const auto focus = [&](const view::View& wanted) {
      for (std::size_t i = 0; i <= controls.size(); ++i)
        if (stage.viewer.focus().focused().get() != &wanted) press(Key::tab);
    };
    focus(panels.route->steps().list());
    press(Key::down);
    press(Key::enter);
    EXPECT_EQ(panels.route->steps().current(), 1U);
    if (isPhone) {
      const double half = panels.route->frame().minY();
      const auto rest = [&] { stage.until([&] { return !panels.isMoving(); }); };
      focus(*panels.handle);
      press(Key::up);
      EXPECT_EQ(panels.route->frame().minY(), half) << "it glides";
      rest();
      EXPECT_LT(panels.route->frame().minY(), half);
      press(Key::enter);
      rest();
      EXPECT_EQ(panels.sheetStop(), SheetStop::peek) << "after the last stop";
      EXPECT_GT(panels.route->frame().minY(), half);
      panels.handle->dragged(300);
      panels.handle->released();
      EXPECT_EQ(panels.sheetStop(), SheetStop::half);
      rest();
      const graphics::Point heading{195, panels.route->frame().minY() + 12};
      const auto touch = [&](view::TouchPhase phase, double up) {
        const view::Touch finger{1, phase, {heading.x, heading.y - up}, stage.time += 0.05};
        stage.viewer.touch({&finger, 1});
      };
      touch(view::TouchPhase::began, 0);
      for (const double up : {100.0, 250.0, 400.0}) touch(view::TouchPhase::moved, up);
      touch(view::TouchPhase::ended, 400);
      EXPECT_EQ(panels.sheetStop(), SheetStop::full) << "dragged by its paper";
      rest();
    }
    focus(panels.search->field());
    stage.viewer.setLook({false, true, 2});
    EXPECT_TRUE(stage.viewer.focus().focused());
    press(Key::escape);  // the route
    EXPECT_FALSE(view.session().hasStops());
    press(Key::escape);
    EXPECT_FALSE(stage.viewer.focus().focused()) << "the focus, before the venue is left";
    EXPECT_TRUE(stage.viewer.venueView());
    stage.type("t");
    EXPECT_EQ(stage.viewer.look().textScale, 1) << "after the largest size";
    EXPECT_EQ(stage.viewer.note(), "Text size: 100 %");
  }
}

}  // namespace orivanta::viewer
