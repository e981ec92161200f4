// Runs `orivanta render` on the demo venue.
#include "Apps/Command/Render/RenderVenue.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "Apps/Server/VenueServer.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/UI/Style/Palette.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"
#include "Tests/Apps/TwoVisitsPackage.hpp"
#include "Tests/Support/CountedPixels.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::command {
namespace {

using testing::HasSubstr;

class RenderVenue : public testing::Test {
 protected:
  RenderVenue() : server_(options()) {}

  test::ProgramResult render(std::vector<std::string> arguments) const {
    return renderTo(file("map.png"), std::move(arguments));
  }

  test::ProgramResult renderTo(const std::string& target,
                               std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"render", "astrolabe-court", "--size=160x100", "-q"});
    return run(server_, target, std::move(arguments));
  }

  // Serves another venue on a separate server.
  void serveVisits(const std::string& attribution) {
    test::writeTwoVisitsPackage(visits_, attribution);
    server::ServerOptions options;
    options.folders = {visits_.path()};
    visitsServer_ = std::make_unique<server::VenueServer>(options);
  }

  test::ProgramResult renderVisits(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"render", "visits", "--size=320x200", "-q"});
    return run(*visitsServer_, file("map.png"), std::move(arguments));
  }

  test::ProgramResult run(const server::VenueServer& server, const std::string& target,
                          std::vector<std::string> arguments) const {
    arguments.insert(arguments.end(), {"-o", target});
    return test::runProgram(
        arguments,
        {"ORIVANTA_ENDPOINT=" + server.root(), "XDG_CACHE_HOME=" + output_.path().string()}, "");
  }

  std::string file(const std::string& name) const { return (output_.path() / name).string(); }

  std::shared_ptr<const graphics::Image> picture(const std::string& name) const {
    return graphics::readImage(file(name));
  }

  // Returns the share of pixels that differ from the other image.
  static double changed(const graphics::Image& left, const graphics::Image& right,
                        int tolerance = 24) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < left.pixels().size(); i += 4)
      for (std::size_t c = 0; c < 3; ++c)
        if (std::abs(left.pixels()[i + c] - right.pixels()[i + c]) > tolerance) {
          ++count;
          break;
        }
    return static_cast<double>(count) * 4 / static_cast<double>(left.pixels().size());
  }

  static server::ServerOptions options() {
    server::ServerOptions options;
    options.folders = {test::generatedVenue()};
    return options;
  }

  server::VenueServer server_;
  test::TemporaryFolder visits_;
  std::unique_ptr<server::VenueServer> visitsServer_;
  test::TemporaryFolder output_;
};

TEST_F(RenderVenue, DrawsTheFloorWithMostPlacesOrAllOfThem) {
  const auto one = render({"--scale", "2", "--tilt", "30"});
  EXPECT_EQ(one.exitCode, 0) << one.errors;
  EXPECT_EQ(one.output, file("map.png") + "\n");
  EXPECT_EQ(one.errors, "");
  ASSERT_NE(picture("map.png"), nullptr);
  EXPECT_EQ(picture("map.png")->width(), 320U);

  const auto all = render({"--map", "all", "--json"});
  EXPECT_EQ(all.exitCode, 0) << all.errors;
  for (const char* const floor : {"B1", "G", "1", "2", "R"})
    EXPECT_NE(picture("map-" + std::string(floor) + ".png"), nullptr) << floor;
  EXPECT_GT(changed(*picture("map-G.png"), *picture("map-R.png")), 0.2);
}

TEST_F(RenderVenue, ShowsWhatIsAskedFor) {
  ASSERT_EQ(render({"--map", "G"}).exitCode, 0);
  const auto styled = picture("map.png");
  ASSERT_EQ(render({"--map", "G", "--style", "plain"}).exitCode, 0);
  const auto plain = picture("map.png");
  const struct {
    std::string style;
    std::vector<std::string> arguments;
    double least;  // minimum share of pixels that differ from a picture in this style
  } cases[] = {
      {"plain", {"--highlight", "paper kestrel=#ff0000"}, 0.002},
      {"plain", {"--labels"}, 0.01},
      {"plain", {"--marker", "paper kestrel"}, 0.002},
      {"plain", {"--turn", "90"}, 0.1},
      {"plain", {"--zoom", "2"}, 0.1},
      {"plain", {"--style", "light"}, 0.1},
      {"light", {"--style", "dark"}, 0.9},
  };
  for (const auto& [style, options, least] : cases) {
    std::vector<std::string> arguments{"--map", "G"};
    if (options.front() != "--style") arguments.insert(arguments.end(), {"--style", style});
    arguments.insert(arguments.end(), options.begin(), options.end());
    ASSERT_EQ(render(arguments).exitCode, 0) << options.front();
    EXPECT_GT(changed(style == "plain" ? *plain : *styled, *picture("map.png")), least)
        << options.front();
  }
}

TEST_F(RenderVenue, DrawsFloorsInTheStyleOfAThemeFile) {
  std::ofstream(file("theme.json")) << R"({"colors": {"backdrop": "#ff0000", "rout": "#fff"}})";
  const auto styled = render({"--map", "G", "--style", file("theme.json")});
  EXPECT_EQ(styled.exitCode, 0);
  EXPECT_EQ(styled.errors,
            "orivanta: warning: " + file("theme.json") + ": unknown member colors.rout\n");
  EXPECT_GT(test::countPixels(*picture("map.png"), graphics::colors::red), 1000);
  EXPECT_EQ(render({"--style", "plain"}).exitCode, 0);
  EXPECT_EQ(test::countPixels(*picture("map.png"), graphics::colors::red), 0);
}

TEST_F(RenderVenue, PicturesShowWhereThePlacesAreWithTheirNamesUnlessAskedOtherwise) {
  ASSERT_EQ(render({}).exitCode, 0);
  const auto first = picture("map.png");
  ASSERT_EQ(render({"--no-labels"}).exitCode, 0);
  EXPECT_GT(changed(*first, *picture("map.png")), 0.001);
  EXPECT_EQ(render({"--labels", "--no-labels"}).exitCode, 2);
  const struct {
    std::vector<std::string> arguments;
    bool isFirstView;
  } cases[] = {{{"--labels"}, true}, {{"--zoom", "1"}, false}, {{"--map", "G"}, false}};
  for (const auto& [arguments, isFirstView] : cases) {
    ASSERT_EQ(render(arguments).exitCode, 0) << arguments.front();
    EXPECT_EQ(changed(*first, *picture("map.png")) < 0.02, isFirstView) << arguments.front();
  }
}

TEST_F(RenderVenue, DrawsARouteOnItsFloorsAndMovesItsArrows) {
  const auto route = render({"--route", "paper kestrel", "popcorn nebula"});
  EXPECT_EQ(route.output, file("map-G.png") + "\n" + file("map-2.png") + "\n");
  ASSERT_EQ(render({"--map", "G"}).exitCode, 0);
  EXPECT_GT(changed(*picture("map.png"), *picture("map-G.png")), 0.2);
  const auto frames = render(
      {"--route", "paper kestrel", "popcorn nebula", "--map", "G", "--zoom", "4", "--frames", "9"});
  EXPECT_EQ(frames.exitCode, 0) << frames.errors;
  ASSERT_NE(picture("map-0009.png"), nullptr);
  const double moved = changed(*picture("map-0001.png"), *picture("map-0009.png"), 3);
  EXPECT_GT(moved, 0) << "arrows move";
  EXPECT_LT(moved, 0.1);
  std::ifstream gif(file("map.gif"), std::ios::binary);
  std::string header(6, ' ');
  gif.read(header.data(), 6);
  EXPECT_EQ(header, "GIF89a");
}

TEST_F(RenderVenue, StacksAllFloorsInOnePicture) {
  ASSERT_EQ(render({"--map", "G"}).exitCode, 0);
  const auto flat = picture("map.png");
  const auto stacked = render({"--stacked", "--map", "G"});
  EXPECT_EQ(stacked.exitCode, 0) << stacked.errors;
  EXPECT_EQ(stacked.output, file("map.png") + "\n");
  const auto floors = picture("map.png");
  EXPECT_GT(changed(*flat, *floors), 0.2);
  ASSERT_EQ(render({"--stacked", "--route", "paper kestrel", "popcorn nebula"}).exitCode, 0);
  EXPECT_GT(changed(*floors, *picture("map.png")), 0.02);
  EXPECT_GT(test::countPixels(*picture("map.png"), lightPalette.route), 4);
  for (const auto& other : {"--style=plain", "--map=all"})
    EXPECT_EQ(render({"--stacked", other}).exitCode, 2) << other;
}

TEST_F(RenderVenue, DrawsAPictureForEachVisitToAFloor) {
  serveVisits("© Testers");
  const auto route = renderVisits({"--route", "bakery", "museum"});
  EXPECT_EQ(route.output,
            file("map-G.png") + "\n" + file("map-U.png") + "\n" + file("map-G-2.png") + "\n");
  const graphics::Color start = lightPalette.start;
  const graphics::Color end = lightPalette.pin;
  EXPECT_GT(test::countPixels(*picture("map-G.png"), start), 50);
  EXPECT_EQ(test::countPixels(*picture("map-G.png"), end), 0);
  EXPECT_EQ(test::countPixels(*picture("map-G-2.png"), start), 0);
  EXPECT_GT(test::countPixels(*picture("map-G-2.png"), end), 50);
}

TEST_F(RenderVenue, ShowsTheAttributionOrSaysToShowIt) {
  serveVisits("© T");
  const auto without = renderVisits({"--no-attribution", "--style", "plain"});
  EXPECT_EQ(without.errors, "orivanta: show this attribution with the images: © T · CC0\n");
  const auto plain = picture("map.png");
  for (const std::string corner : {"lower-left", "lower-right", "upper-left", "upper-right"}) {
    EXPECT_EQ(renderVisits({"--attribution", corner, "--style", "plain"}).errors, "");
    const auto shown = picture("map.png");
    for (std::size_t i = 0; i < shown->pixels().size(); ++i) {
      if (shown->pixels()[i] == plain->pixels()[i]) continue;
      const std::size_t x = i / 4 % 320;
      const std::size_t y = i / 4 / 320;
      ASSERT_EQ(corner, std::string(y < 50    ? "upper"
                                    : y > 150 ? "lower"
                                              : "middle") +
                            (x < 130 ? "-left" : "-right"));
    }
    EXPECT_GT(changed(*plain, *shown), 0.002) << corner;
  }
  EXPECT_EQ(renderVisits({"--attribution", "middle"}).exitCode, 2);
  ASSERT_EQ(renderVisits({"--style", "dark"}).exitCode, 0);
  EXPECT_LT(picture("map.png")->pixels()[4 * (188 * 320 + 8)], 60) << "a dark ground";
  serveVisits(std::string(900, 'x'));
  EXPECT_THAT(renderVisits({}).errors, HasSubstr("show this attribution with the images: xxx"));
}

TEST_F(RenderVenue, ReplaysTouches) {
  ASSERT_EQ(render({}).exitCode, 0);
  const auto plain = picture("map.png");
  std::ofstream(file("pan.jsonl")) << R"(# a pan to the left
{"time": 0.0, "finger": 1, "phase": "began", "x": 80, "y": 50}
{"time": 0.1, "finger": 1, "phase": "moved", "x": 60, "y": 50}
{"time": 0.2, "finger": 1, "phase": "moved", "x": -140, "y": 50}
{"time": 0.3, "finger": 1, "phase": "ended", "x": -140, "y": 50}
)";
  ASSERT_EQ(render({"--touches", file("pan.jsonl")}).exitCode, 0);
  EXPECT_GT(changed(*plain, *picture("map.png")), 0.1);

  for (const char* const line :
       {"nonsense", R"({"time": 0, "finger": 1, "phase": "flew", "x": 0, "y": 0})",
        R"({"time": 0, "finger": 1.5, "phase": "began", "x": 0, "y": 0})"}) {
    std::ofstream(file("bad.jsonl")) << line;
    const auto bad = render({"--touches", file("bad.jsonl")});
    EXPECT_EQ(bad.exitCode, 2) << line;
    EXPECT_THAT(bad.errors, HasSubstr("bad.jsonl:1:")) << line;
  }
}

TEST_F(RenderVenue, SaysWhatIsWrong) {
  const struct {
    std::vector<std::string> arguments;
    int exitCode;
    std::string said;
  } cases[] = {
      {{"--scale", "9"}, 2, "--scale"},
      {{"--scale", "0"}, 2, "--scale"},
      {{"--turn", "nan"}, 2, "--turn"},
      {{"--tilt", "60"}, 2, "--tilt"},
      {{"--zoom", "-1"}, 2, "--zoom"},
      {{"--highlight", "paper kestrel=mauvish"}, 2, "not a color"},
      {{"--style", "bright"}, 2, "--style: bright: "},
      {{"--touches", "/nonexistent"}, 2, "cannot read"},
      {{"--map", "attic"}, 1, "no floor \"attic\""},
      {{"--marker", "no such shop"}, 1, "no location"},
  };
  for (const auto& [arguments, exitCode, said] : cases) {
    const auto result = render(arguments);
    EXPECT_EQ(result.exitCode, exitCode) << arguments.front();
    EXPECT_THAT(result.errors, HasSubstr(said)) << arguments.front();
  }
  const auto unwritable = renderTo("/dev/null/map.png", {});
  EXPECT_EQ(unwritable.exitCode, 4);
  EXPECT_THAT(unwritable.errors, HasSubstr("/dev/null"));
}

}  // namespace
}  // namespace orivanta::command
