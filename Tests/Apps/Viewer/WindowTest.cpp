// The real program on a screen without a screen, with a real pointer and real keys.
#include <SDL.h>
#include <fcntl.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "Apps/Viewer/Window.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {

namespace {

namespace fs = std::filesystem;

// The first line that a command writes.
std::string lineFrom(const std::string& command) {
  FILE* const pipe = popen(command.c_str(), "r");
  std::array<char, 256> line{};
  const bool read = fgets(line.data(), line.size(), pipe) != nullptr;
  pclose(pipe);
  return read ? std::string(line.data(), std::string_view(line.data()).find('\n')) : "";
}

// An X server of its own, while it lasts.
class Screen {
 public:
  Screen() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    const std::string told = std::to_string(ends[1]);
    process_ = fork();
    if (process_ == 0) {
      const int nowhere = open("/dev/null", O_WRONLY);
      dup2(nowhere, STDERR_FILENO);
      execlp("Xvfb", "Xvfb", "-displayfd", told.c_str(), "-screen", "0", "1400x900x24", "-nolisten",
             "tcp", nullptr);
      _exit(127);
    }
    close(ends[1]);
    std::string number;
    for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) number += digit;
    close(ends[0]);
    display_ = ":" + number;
  }
  ~Screen() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const std::string& display() const { return display_; }

 private:
  pid_t process_ = 0;
  std::string display_;
};

class WindowTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { keepDriverLoaded(); }

  void SetUp() override {
    if (lineFrom("command -v Xvfb").empty() || lineFrom("command -v xdotool").empty())
      GTEST_SKIP() << "needs Xvfb and xdotool";
    fs::current_path(folder.path());
  }
  void TearDown() override { fs::current_path(before); }

  std::unique_ptr<Program> start(const std::string& endpoint) const {
    return std::make_unique<Program>(
        std::vector<std::string>{"view", "astrolabe-court", "--endpoint", endpoint},
        std::vector<std::string>{"DISPLAY=" + screen.display(),
                                 "XDG_CACHE_HOME=" + folder.path().string()});
  }

  std::string hand(const std::string& what) const {
    return lineFrom("DISPLAY=" + screen.display() + " timeout 100 xdotool " + what);
  }

  std::shared_ptr<const graphics::Image> picture(Program& program) const {
    hand("key F12");
    const std::string name = program.readLine();
    return name.empty() ? nullptr : graphics::readImage(name.substr(0, name.size() - 1));
  }

  // Looks until it sees what it wants.
  template <class Wanted>
  testing::AssertionResult shows(Program& program, const Wanted& wanted) const {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (std::chrono::steady_clock::now() < end) {
      const auto seen = picture(program);
      if (!seen) return testing::AssertionFailure() << program.finish().errors;
      if (wanted(*seen)) return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "patience has run out";
  }

  const fs::path before = fs::current_path();
  TemporaryFolder folder;
  Screen screen;
};

bool showsMap(const graphics::Image& image) {
  return countPixels(image, viewer::theme::backdrop) < 700'000;
}
bool showsMessage(const graphics::Image& image) {
  return countPixels(image, viewer::theme::accent) > 2000 && !showsMap(image);
}
bool showsSelection(const graphics::Image& image) {
  return countPixels(image, {0.80F, 0.47F, 0.02F}) > 50;
}

}  // namespace

TEST_F(WindowTest, StartsSearchesIsResizedAndOutlivesItsServer) {
  auto server = serveDemo();
  const auto program = start(server->root());
  const std::string window = hand("search --sync --onlyvisible --name 'Orivanta|Astrolabe'");
  ASSERT_FALSE(window.empty());
  hand("windowfocus --sync " + window);
  ASSERT_TRUE(shows(*program, showsMap));
  EXPECT_FALSE(showsSelection(*picture(*program)));
  server.reset();  // all that is needed is there, or is said to be missing when it is asked for

  hand("key slash");
  hand("type dosa");
  hand("key Return");
  EXPECT_TRUE(shows(*program, showsSelection));
  hand("mousemove --window " + window + " 332 100 click 1");  // the card's cross
  EXPECT_TRUE(shows(*program, [](const auto& image) { return !showsSelection(image); }));

  hand("windowsize --sync " + window + " 390 844");
  EXPECT_TRUE(shows(
      *program, [](const auto& image) { return image.width() == 390 && image.height() == 844; }));
  program->endWith(SIGTERM);
  EXPECT_EQ(program->finish().exitCode, 0);
}

TEST_F(WindowTest, SaysThatTheServerIsAwayAndTriesAgain) {
  auto server = serveDemo();
  const std::string root = server->root();
  const auto port = static_cast<std::uint16_t>(std::stoi(root.substr(root.rfind(':') + 1)));
  server.reset();
  const auto program = start(root);
  const std::string window = hand("search --sync --onlyvisible --name 'Orivanta|Astrolabe'");
  hand("windowfocus --sync " + window);
  ASSERT_TRUE(shows(*program, showsMessage));
  server = serveDemo(port);
  hand("key Return");
  EXPECT_TRUE(shows(*program, showsMap));
}

namespace {

// Fingers that land, move in a straight line each, and leave.
struct Gesture {
  const char* name;
  std::function<std::vector<std::pair<graphics::Point, graphics::Point>>()> ways;
  std::function<bool(const viewer::CameraPose& before, const viewer::CameraPose& after)> works;
};

// Works through gestures, a moment of each for each turn of the window's loop.
class Toucher {
 public:
  Toucher(viewer::Viewer& viewer, graphics::Size size, std::vector<Gesture> gestures)
      : viewer_(viewer), size_(size), gestures_(std::move(gestures)) {
    next();
  }

 private:
  static constexpr int moves = 4;

  void next() {
    foundation::mainQueue::async([this] {
      SDL_Event end{};
      end.type = SDL_QUIT;
      const bool isLate = std::chrono::steady_clock::now() > end_;
      EXPECT_FALSE(isLate);
      if (isLate || done_ == gestures_.size())
        SDL_PushEvent(&end);
      else
        turn();
    });
  }

  void turn() {
    if (viewer_.venueView() && viewer_.venueView()->camera().isReady() && !viewer_.isMoving())
      touch(gestures_[done_]);
    next();
  }

  void touch(const Gesture& gesture) {
    const viewer::CameraPose now = viewer_.venueView()->camera().pose();
    if (moment_ == 0) {
      before_ = now;
      ways_ = gesture.ways();
    }
    if (moment_ > moves + 1) {
      EXPECT_TRUE(gesture.works(before_, now)) << gesture.name;
      moment_ = 0;
      ++done_;
      return;
    }
    // A tap must not take long, however slow the machine.
    const bool isTap = ways_.front().first == ways_.front().second;
    if (moment_ == 0) send(SDL_FINGERDOWN, 0);
    if (moment_ > 0 && moment_ <= moves) send(SDL_FINGERMOTION, moment_ / double{moves});
    if (isTap || moment_ > moves) send(SDL_FINGERUP, 1);
    moment_ = isTap ? moves + 2 : moment_ + 1;
  }

  // All fingers, a share of their ways on.
  void send(Uint32 type, double share) {
    for (std::size_t i = 0; i < ways_.size(); ++i) {
      const auto& [from, to] = ways_[i];
      SDL_Event event{};
      event.type = type;
      event.tfinger.touchId = 1;
      event.tfinger.fingerId = static_cast<SDL_FingerID>(i);
      event.tfinger.x = static_cast<float>((from.x + (to.x - from.x) * share) / size_.width);
      event.tfinger.y = static_cast<float>((from.y + (to.y - from.y) * share) / size_.height);
      SDL_PushEvent(&event);
    }
  }

  viewer::Viewer& viewer_;
  graphics::Size size_;
  std::vector<Gesture> gestures_;
  std::size_t done_ = 0;
  int moment_ = 0;
  std::vector<std::pair<graphics::Point, graphics::Point>> ways_;  // of the fingers
  viewer::CameraPose before_;
  const std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::now() + patience;
};

}  // namespace

TEST_F(WindowTest, FingersMoveTurnAndTiltTheMapAndTapIt) {
  const EnvironmentVariable display("DISPLAY", screen.display());
  const EnvironmentVariable caches("XDG_CACHE_HOME", folder.path().string());
  const DiagnosticLines quiet;
  const auto server = serveDemo();
  const graphics::Size size{400, 500};
  auto made = render::WindowSurface::make({"Fingers", size, 1});
  ASSERT_TRUE(std::holds_alternative<std::unique_ptr<render::WindowSurface>>(made));
  viewer::Viewer viewer({settingsFor(server->root()), "astrolabe-court"});
  using Pose = viewer::CameraPose;
  using Ways = std::vector<std::pair<graphics::Point, graphics::Point>>;
  const auto kindling = [&] {
    const auto& locations = *viewer.venueView()->venue()->locations;
    return *std::find_if(locations.begin(), locations.end(),
                         [](const auto& place) { return place->id == "kindling"; });
  };
  const Toucher toucher(
      viewer, size,
      {{"tap",
        [&] {
          MapView& map = viewer.venueView()->mapView();
          const auto at = map.findPositionCameraViewport(map.findPosition3D(*kindling()));
          return Ways{{at, at}};
        },
        [&](const Pose&, const Pose&) {
          const bool works = viewer.venueView()->selected() == kindling();
          viewer.keyPressed({viewer::Key::escape});
          return works;
        }},
       {"pinch",
        [] {
          return Ways{{{140, 250}, {80, 250}}, {{240, 250}, {300, 250}}};
        },
        [](const Pose& old, const Pose& now) { return now.distance < old.distance * 0.8; }},
       {"pan",
        [] {
          return Ways{{{150, 250}, {250, 310}}};
        },
        [](const Pose& old, const Pose& now) {
          return now.x < old.x - 20 && now.y > old.y + 20 && now.turn == old.turn;
        }},
       {"rotation",
        [] {
          return Ways{{{90, 250}, {140, 163}}, {{290, 250}, {240, 337}}};
        },
        [](const Pose& old, const Pose& now) {
          return std::abs(std::remainder(now.turn - old.turn, 6.2832)) > 0.5;
        }},
       {"tilt",
        [] {
          return Ways{{{140, 350}, {140, 250}}, {{240, 350}, {240, 250}}};
        },
        [](const Pose& old, const Pose& now) { return now.tilt > old.tilt + 0.1; }}});
  viewer::Times times(/*isEnabled=*/false);
  viewer::runWindow(viewer, *std::get<0>(made), times);
}

}  // namespace orivanta::test
