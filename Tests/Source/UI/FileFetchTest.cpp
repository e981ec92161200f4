#include "Source/UI/FileFetch.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "Platform/Foundation/Files.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/ShownVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {
namespace {

class FileFetchTest : public testing::Test {
 protected:
  // Begins to fetch a file of the server.
  std::shared_ptr<FileFetch> start(const std::string& path,
                                   std::function<void(std::size_t, FileFetch::Outcome)> ended) {
    return FileFetch::start({{*foundation::Url::parse(server.root(path)), "maps"}},
                            std::make_shared<HttpDownloader>(), {[](auto) {}, std::move(ended)});
  }

  const DiagnosticLines quiet;
  const TemporaryFolder caches;
  const EnvironmentVariable variable{"XDG_CACHE_HOME", caches.path()};
  MisbehavingServer server;
};

TEST_F(FileFetchTest, KeepsOnlyAnAnswerThatIsOne) {
  server.on("/a.png",
            {Answer::html("404 page not found", 404), Answer::html("busy", 503), Answer::html(""),
             Answer::html("{}"), Answer::html("cut").closedAfter(1), Answer::html("picture", 203)});
  const auto kept = *foundation::cachesDirectory() / "maps" / "a.png";
  for (const std::string problem :
       {"answered with HTTP status 404", "answered with HTTP status 503", "answered with nothing",
        "gives an error page in place of the file", "cannot be fetched: ", ""}) {
    const Awaited<FileFetch::Outcome> outcome;
    start("/a.png", [outcome](std::size_t, const auto& ended) { outcome.give(ended); });
    const auto [path, told] = outcome.take();
    EXPECT_EQ(std::filesystem::exists(kept), problem.empty());
    EXPECT_EQ(path, problem.empty() ? kept.string() : "");
    if (problem.empty())
      EXPECT_EQ(told, "");
    else
      EXPECT_THAT(told, testing::StartsWith(server.root("/a.png ") + problem));
  }
}

TEST_F(FileFetchTest, EndsItsRequestWhenCancelled) {
  const auto never = std::make_shared<Latch>();
  const auto threadEnded = std::make_shared<Latch>();
  server.on("/a.png", Answer::html("late").held(never));
  auto fetch = start("/a.png", [held = opensWhenGone(threadEnded)](auto, const auto&) {});
  ASSERT_TRUE(server.waitForRequests("/a.png", 1));
  fetch->cancel();
  fetch.reset();
  EXPECT_TRUE(threadEnded->wait());
}

}  // namespace
}  // namespace orivanta::test
