#include "Apps/Viewer/PictureFetch.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/Location.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/ShownVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::viewer {
namespace {

using test::Answer;

class PictureFetchTest : public testing::Test {
 protected:
  void start(const std::string& url,
             std::shared_ptr<HttpDownloader> downloader = std::make_shared<HttpDownloader>()) {
    const auto place = Location::make(*RawData::parse(
        fmt::format(R"({{"id": "a", "name": "A", "type": "shop", "picture": "{}"}})", url)));
    fetch.start(*place, "mall", std::move(downloader),
                [this, url](const auto&, PictureMode) { arrived.push_back(url); });
  }

  void waitForPictures(std::size_t count) {
    const auto end = std::chrono::steady_clock::now() + test::patience;
    while (arrived.size() < count && std::chrono::steady_clock::now() < end) {
      foundation::mainQueue::wait(0.02);
      foundation::mainQueue::drain();
    }
  }

  static Answer picture() {
    const auto png = graphics::encodePng(*graphics::Image::make(1, 1, {255, 0, 0, 255}));
    return Answer::html({png.begin(), png.end()});
  }

  const test::DiagnosticLines quiet;
  const test::TemporaryFolder caches;
  const test::EnvironmentVariable variable{"XDG_CACHE_HOME", caches.path()};
  test::MisbehavingServer server;
  std::vector<std::string> arrived;
  PictureFetch fetch;
};

TEST_F(PictureFetchTest, TheNextPictureEndsTheFormerRequest) {
  struct TrackedDownloader : HttpDownloader {
    std::shared_ptr<void> token;
  };
  const auto threadEnded = std::make_shared<test::Latch>();
  auto tracked = std::make_shared<TrackedDownloader>();
  tracked->token = test::opensWhenGone(threadEnded);
  server.on("/slow/a.png", picture().held(std::make_shared<test::Latch>()));
  server.on("/a.png", picture());
  start(server.root("/slow/a.png"), std::move(tracked));
  ASSERT_TRUE(server.waitForRequests("/slow/a.png", 1));
  start(server.root("/a.png"));
  EXPECT_TRUE(threadEnded->wait());
  waitForPictures(1);
  EXPECT_EQ(arrived, std::vector{server.root("/a.png")});
}

TEST_F(PictureFetchTest, ServersAndPathsTellPicturesApart) {
  test::MisbehavingServer moved;
  std::size_t count = 0;
  for (const auto& [host, path] :
       {std::pair{&server, "/a.png"}, {&moved, "/a.png"}, {&server, "/b/a.png"}}) {
    host->on(path, picture());
    start(host->root(path));
    waitForPictures(++count);
    EXPECT_EQ(host->requests(path).size(), 1U);
  }
  std::size_t kept = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(caches.path()))
    if (entry.path().filename() == "a.png") ++kept;
  EXPECT_EQ(kept, 3U);
}

}  // namespace
}  // namespace orivanta::viewer
