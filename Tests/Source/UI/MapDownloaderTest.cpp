#include "Source/UI/MapDownloader.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <mutex>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta {
namespace {

namespace fs = std::filesystem;
using foundation::Error;
using foundation::Url;
using test::Answer;
using testing::ElementsAre;

Url url(const std::string& text) { return *Url::parse(text); }

std::string contents(const fs::path& file) {
  return foundation::readFile(file, 1U << 20U).value_or("(none)");
}

// A server, an empty cache directory and the diagnostics that were written.
class MapDownloader : public testing::Test {
 public:
  MapDownloader() {
    foundation::setDiagnosticSink([this](std::string_view line) {
      const std::lock_guard lock(mutex_);
      lines_.emplace_back(line);
    });
  }
  ~MapDownloader() override { foundation::setDiagnosticSink({}); }

 protected:
  std::vector<std::string> takeLines() {
    const std::lock_guard lock(mutex_);
    return std::exchange(lines_, {});
  }

  std::optional<std::string> load(const std::string& path, const std::string& folder = "maps") {
    return downloader.loadFileSync(url(server.root(path)), folder);
  }

  struct Outcome {
    std::string path;
    std::optional<Error> error;
  };
  Outcome loadAsync(const std::string& address) {
    const test::Awaited<Outcome> outcome;
    downloader.loadFileAsync(url(address), [outcome](const std::string& path, const auto& error) {
      outcome.give({path, error});
    });
    return outcome.take();
  }

  std::size_t entryCount() const {
    return static_cast<std::size_t>(
        std::distance(fs::recursive_directory_iterator(root), fs::recursive_directory_iterator()));
  }

  test::MisbehavingServer server;
  HttpDownloader downloader;

 private:
  const test::TemporaryFolder folder_;
  const test::EnvironmentVariable caches_{"XDG_CACHE_HOME", folder_.path()};
  std::mutex mutex_;
  std::vector<std::string> lines_;

 protected:
  const fs::path root = *foundation::cachesDirectory();
};

TEST_F(MapDownloader, FetchesAFileOnce) {
  server.on("/a/floor.obj", Answer::html("v 0 0 0").gzipped());
  const auto path = load("/a/floor.obj?v=1", "mall/maps");
  EXPECT_EQ(path, root / "mall" / "maps" / "floor.obj");
  EXPECT_EQ(contents(*path), "v 0 0 0");
  EXPECT_EQ(load("/other/floor.obj", "mall/maps"), path);
  EXPECT_THAT(takeLines(), ElementsAre(fmt::format("file saved [{}]", *path),
                                       fmt::format("file already exists [{}]", *path)));
  ASSERT_EQ(server.requests().size(), 1U);
  EXPECT_EQ(server.requests()[0].field("Authorization"), std::nullopt);
}

TEST_F(MapDownloader, TakesWhateverAnswersOnTheWayThatBlocks) {
  server.on("/moved", Answer::redirect("/b"));
  server.on("/b", Answer::html("moved here"));
  server.on("/gone", Answer::html("no such page", 404));
  server.on("/empty", Answer::html(""));
  EXPECT_EQ(contents(*load("/moved")), "moved here");
  EXPECT_EQ(contents(*load("/gone")), "no such page");
  EXPECT_EQ(contents(*load("/empty")), "");
}

TEST_F(MapDownloader, LeavesNothingBehindWhenNothingAnswers) {
  server.on("/half", Answer::html("0123456789").closedAfter(5));
  server.on("/damaged", Answer::html("no gzip").with("Content-Encoding", "gzip"));
  EXPECT_EQ(load("/half", "new"), std::nullopt);
  EXPECT_EQ(load("/damaged", "new"), std::nullopt);
  for (const std::string& address : {server.refusingRoot() + "a", std::string("file:///missing/a"),
                                     std::string("data:,a"), std::string("a")})
    EXPECT_EQ(downloader.loadFileSync(url(address), "new"), std::nullopt) << address;
  EXPECT_EQ(entryCount(), 0U);
  EXPECT_THAT(takeLines(), ElementsAre());
}

TEST_F(MapDownloader, ReadsFilesFromDisk) {
  const test::TemporaryFolder other;
  const auto file = other.write("a b.png", "picture");
  EXPECT_EQ(contents(*downloader.loadFileSync(Url::fromFile(file), "maps")), "picture");
}

TEST_F(MapDownloader, TellsWhenAFileCannotBeKept) {
  server.on("/a", Answer::html("x"));
  foundation::writeFileAtomically(root / "blocked", "");
  EXPECT_EQ(load("/a", "blocked"), std::nullopt);
  EXPECT_THAT(takeLines(), ElementsAre("error saving file"));
  EXPECT_EQ(load("/a", "blocked/maps"), std::nullopt);
  EXPECT_THAT(takeLines(),
              ElementsAre(testing::HasSubstr("cannot create the folder"), "error saving file"));
}

TEST_F(MapDownloader, HostileNamesStayInTheirFolder) {
  struct Case {
    std::string component;
    bool kept;
  };
  const std::string longName(255, 'n');
  for (const auto& [component, kept] :
       {Case{"caf%C3%A9%20%5C.obj", true}, Case{longName, true}, Case{"..%2F..%2Fescaped", false},
        Case{"%2E%2E", false}, Case{"%2e", false}, Case{"a%00b", false}, Case{"%2Fetc", false},
        Case{longName + "n", false}, Case{"", false}}) {
    server.on("/" + component, Answer::html(component));
    const auto path = load("/" + component, "maps");
    ASSERT_TRUE(path) << component;
    EXPECT_EQ(fs::path(*path).parent_path(), root / "maps") << component;
    EXPECT_EQ(fs::path(*path).filename() == *url("/" + component).lastPathComponent(), kept);
    EXPECT_EQ(contents(*path), component);
    EXPECT_EQ(load("/" + component, "maps"), path);
  }
}

TEST_F(MapDownloader, HostileFoldersStayBelowTheCachesDirectory) {
  server.on("/a", Answer::html("x"));
  EXPECT_EQ(load("/a", ""), root / "a");
  EXPECT_EQ(load("/a", "/b//c/"), root / "b" / "c" / "a");
  for (const std::string& folder :
       {std::string("../../x"), std::string("b/../../.."), std::string("."),
        std::string("x\0/../y", 7), std::string(300, 'x')}) {
    const auto path = load("/a", folder);
    ASSERT_TRUE(path) << folder;
    const auto below = fs::canonical(*path).lexically_relative(fs::canonical(root));
    EXPECT_NE(*below.begin(), "..") << folder;
    EXPECT_GT(std::distance(below.begin(), below.end()), 1) << folder;
  }
}

TEST_F(MapDownloader, ReportsLaterOnTheWayThatDoesNotBlock) {
  server.on("/a", Answer::html("x").gzipped());
  const std::string path = root / "a";
  for (int round = 0; round < 2; ++round) {
    const Outcome outcome = loadAsync(server.root("/a"));
    EXPECT_EQ(outcome.path, path);
    EXPECT_EQ(outcome.error, std::nullopt);
    EXPECT_EQ(contents(path), "x");
  }
  EXPECT_EQ(server.requests().size(), 1U);
  EXPECT_THAT(takeLines(),
              ElementsAre(testing::StartsWith("response="), fmt::format("file saved [{}]", path),
                          fmt::format("file already exists [{}]", path)));
}

TEST_F(MapDownloader, ACachedFileIsReportedAtOnce) {
  foundation::writeFileAtomically(root / "a", "x");
  bool reported = false;
  downloader.loadFileAsync(url(server.root("/a")),
                           [&](const std::string&, const auto&) { reported = true; });
  EXPECT_TRUE(reported);
  EXPECT_NO_THROW(downloader.loadFileAsync(url(server.root("/a")), {}));
}

TEST_F(MapDownloader, AnAnswerOtherThanOkIsNeitherKeptNorReported) {
  server.on("/a", Answer::html("no", 404));
  const auto released = std::make_shared<test::Latch>();
  bool reported = false;
  downloader.loadFileAsync(url(server.root("/a")),
                           [&reported, held = test::opensWhenGone(released)](
                               const std::string&, const auto&) { reported = true; });
  EXPECT_TRUE(released->wait());
  EXPECT_FALSE(reported);
  EXPECT_EQ(entryCount(), 0U);
}

TEST_F(MapDownloader, ErrorsComeWithThePath) {
  const Outcome refused = loadAsync(server.refusingRoot() + "a");
  EXPECT_EQ(refused.path, root / "a");
  ASSERT_TRUE(refused.error);
  EXPECT_THAT(takeLines(), ElementsAre("Failure: " + refused.error->description));

  const auto latch = std::make_shared<test::Latch>();
  server.on("/b", Answer::html("x").held(latch));
  const test::Awaited<std::optional<Error>> unsaved;
  downloader.loadFileAsync(
      url(server.root("/b")),
      [unsaved](const std::string&, const auto& error) { unsaved.give(error); });
  fs::create_directory(root / "b");
  latch->open();
  EXPECT_EQ(unsaved.take(), (Error{"Error saving file", 1001, ""}));
  EXPECT_THAT(takeLines(), ElementsAre(testing::StartsWith("response="), "error saving file"));
}

using MapDownloaderDeathTest = MapDownloader;

TEST_F(MapDownloaderDeathTest, StopsWithoutAPathOrACachesDirectory) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(downloader.loadFileSync(url("http://h"), "x"), "unexpectedly found nil");
  EXPECT_DEATH(
      {
        ::unsetenv("XDG_CACHE_HOME");
        ::unsetenv("HOME");
        downloader.loadFileAsync(url("http://h/a"), {});
      },
      "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta
