// Runs the program on a virtual display, with real pointer and keyboard events.
#include <fcntl.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>

#include "Platform/Graphics/ImageFile.hpp"
#include "Source/UI/Style/MapTheme.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {

namespace {

namespace fs = std::filesystem;

// Returns the first line of a command's output.
std::string lineFrom(const std::string& command) {
  FILE* const pipe = popen(command.c_str(), "r");
  std::array<char, 256> line{};
  const bool read = fgets(line.data(), line.size(), pipe) != nullptr;
  pclose(pipe);
  return read ? std::string(line.data(), std::string_view(line.data()).find('\n')) : "";
}

// An X server that runs as long as this object exists.
class Screen {
 public:
  Screen() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("cannot create a pipe");
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

  // Checks new images until `wanted` returns true. Fails after a time limit.
  template <class Wanted>
  testing::AssertionResult shows(Program& program, const Wanted& wanted) const {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (std::chrono::steady_clock::now() < end) {
      const auto seen = picture(program);
      if (!seen) return testing::AssertionFailure() << program.finish().errors;
      if (wanted(*seen)) return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "timed out";
  }

  const fs::path before = fs::current_path();
  TemporaryFolder folder;
  Screen screen;
};

bool showsMap(const graphics::Image& image) {
  return countPixels(image, viewer::theme::backdrop) < 700'000;
}
bool showsSelection(const graphics::Image& image) {
  return countPixels(image, MapTheme::light()->colors.pin) > 50;
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
  server.reset();  // everything needed has been loaded; what is missing is reported on request

  hand("key slash");
  hand("type dosa");
  hand("key Return");
  EXPECT_TRUE(shows(*program, showsSelection));
  hand("mousemove --window " + window + " 332 100 click 1");  // the close button of the card
  EXPECT_TRUE(shows(*program, [](const auto& image) { return !showsSelection(image); }));

  hand("windowsize --sync " + window + " 390 844");
  EXPECT_TRUE(shows(
      *program, [](const auto& image) { return image.width() == 390 && image.height() == 844; }));
  program->endWith(SIGTERM);
  EXPECT_EQ(program->finish().exitCode, 0);
}

}  // namespace orivanta::test
