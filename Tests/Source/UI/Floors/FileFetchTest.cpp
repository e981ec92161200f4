#include "Source/UI/Floors/FileFetch.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <stdexcept>
#include <utility>

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
  // Starts fetching a file from the server.
  void start(const std::string& path, std::function<void(std::size_t, FileFetch::Outcome)> ended) {
    FileFetch::start({{*foundation::Url::parse(server.root(path)), "maps"}},
                     std::make_shared<HttpDownloader>(), {}, {[](auto) {}, std::move(ended)});
  }

  FileFetch::Outcome fetch(const std::string& address, const std::string& folder) {
    const Awaited<FileFetch::Outcome> outcome;
    HttpDownloader downloader;
    downloader.fetchFile(*foundation::Url::parse(address), folder, {},
                         [outcome](const auto& fetched) { outcome.give(fetched); });
    return outcome.take();
  }
  FileFetch::Outcome fetch(const std::string& path) { return fetch(server.root(path), "maps"); }

  const DiagnosticLines quiet;
  const TemporaryFolder caches;
  const EnvironmentVariable variable{"XDG_CACHE_HOME", caches.path()};
  MisbehavingServer server;
};

TEST_F(FileFetchTest, KeepsOnlyAnAnswerThatIsOne) {
  Answer bomb = Answer::html("").with("Content-Encoding", "gzip");  // 128 MiB
  const std::string member = gzipped(std::string(16U << 20U, ' '));
  for (int i = 0; i < 8; ++i) bomb.body += member;
  server.on("/a.png", {Answer::html("404 page not found", 404), Answer::html("busy", 503), bomb,
                       Answer::html(""), Answer::html("{}"), Answer::html("cut").closedAfter(1),
                       Answer::html("picture", 203)});
  const auto kept = *foundation::cachesDirectory() / "maps" / "a.png";
  for (const std::string problem :
       {"returned HTTP status 404", "returned HTTP status 503",
        "cannot be fetched: the memory limit", "returned an empty response",
        "returned an error page instead of the file", "cannot be fetched: ", ""}) {
    const Awaited<FileFetch::Outcome> outcome;
    start("/a.png", [outcome](std::size_t, const auto& ended) { outcome.give(ended); });
    const auto fetched = outcome.take();
    EXPECT_EQ(std::filesystem::exists(kept), problem.empty());
    if (problem.empty())
      EXPECT_EQ(fetched->path, kept.string());
    else
      EXPECT_THAT(fetched.error().description,
                  testing::StartsWith(server.root("/a.png ") + problem));
  }
}

// Completes each fetch when the test says so.
struct WaitingDownloader : HttpDownloader {
  void fetchFile(const foundation::Url& url, const std::string&,
                 const foundation::CancellationToken&, FetchCompletion completion) override {
    started += *url.lastPathComponent();
    if (started.ends_with('x')) throw std::runtime_error("no such file");
    if (isImmediate) return completion(Fetched{});
    completions.push_back(std::move(completion));
  }

  std::string started;                      // the names of the files
  std::deque<FetchCompletion> completions;  // whose addresses do not change
  bool isImmediate = false;
};

std::vector<FileFetch::File> filesNamed(const std::string& letters) {
  std::vector<FileFetch::File> files;
  files.reserve(letters.size());
  for (const char letter : letters)
    files.push_back({*foundation::Url::parse(std::string("http://h/") + letter), ""});
  return files;
}

TEST_F(FileFetchTest, StartsAFileWhenAnotherEndsUntilItIsCanceled) {
  const auto downloader = std::make_shared<WaitingDownloader>();
  const foundation::CancellationSource source;
  std::string ended;
  FileFetch::start(filesNamed("abcdxefg"), downloader, source.token(),
                   {[](auto) {},
                    [&](std::size_t file, const FileFetch::Outcome& outcome) {
                      ended += fmt::format("{}{} ", file, outcome ? "" : "!");
                    }});
  EXPECT_EQ(downloader->started, "abcd");
  downloader->completions[1]({});
  EXPECT_EQ(downloader->started, "abcdxe");
  downloader->completions[1]({});  // has no effect
  EXPECT_EQ(downloader->started, "abcdxe");
  source.cancel();
  downloader->completions[0]({});
  EXPECT_EQ(downloader->started, "abcdxe");
  EXPECT_EQ(ended, "1 4! 0 ");
  downloader->completions.clear();  // each keeps the downloader
}

TEST_F(FileFetchTest, ImmediateCompletionsDoNotNest) {
  const auto downloader = std::make_shared<WaitingDownloader>();
  downloader->isImmediate = true;
  std::size_t count = 0;
  FileFetch::start(filesNamed(std::string(100'000, 'a')), downloader, {},
                   {[](auto) {}, [&](auto, const auto&) { ++count; }});
  EXPECT_EQ(count, 100'000U);
}

TEST_F(FileFetchTest, CancelingReleasesTheCompletionEvenIfTheTransportDoesNot) {
  struct SilentTransport : network::UrlTransport {
    void start(network::UrlRequest, Completion completed) override {
      kept = std::move(completed);
      isAsked->open();
    }
    Completion kept;
    const std::shared_ptr<Latch> isAsked = std::make_shared<Latch>();
  };
  const auto transport = std::make_shared<SilentTransport>();
  const auto released = std::make_shared<Latch>();
  const foundation::CancellationSource source;
  HttpDownloader(transport).fetchFile(
      *foundation::Url::parse("http://h/a"), "maps", source.token(),
      [held = opensWhenGone(released)](const auto&) { ADD_FAILURE() << "canceled"; });
  ASSERT_TRUE(transport->isAsked->wait());
  source.cancel();
  EXPECT_TRUE(released->isOpen());
  std::exchange(transport->kept, nullptr)(network::UrlAnswer{});
}

// A cached file after a first fetch, and the result of the second fetch.
TEST_F(FileFetchTest, AsksTheServerAgainUnlessTheFileIsNotWhatArrived) {
  const auto current = Answer::html("new").with("ETag", "\"2\"");
  const auto same = Answer::html("", 304);
  const auto nothing = [](const auto&) {};
  struct Case {
    std::string what;
    Answer first;
    std::function<void(const std::filesystem::path& file)> then;
    Answer second;
    std::string condition;  // of the second request
    std::string contents;   // after the second request; empty if it failed
    bool isEarlier = false;
  };
  const auto tagged = Answer::html("old").with("ETag", "\"1\"");
  const auto dated = Answer::html("old").with("Last-Modified", "Sat, 01 Jan 2022 00:00:00 GMT");
  const auto write = [](const std::string& text) {
    return
        [text](const std::filesystem::path& file) { foundation::writeFileAtomically(file, text); };
  };
  for (const auto& [what, first, then, second, condition, contents, isEarlier] :
       {Case{"unchanged", tagged, nothing, same, "\"1\"", "old"},
        Case{"changed", tagged, nothing, current, "\"1\"", "new"},
        Case{"dated", dated, nothing, same, "Sat, 01 Jan 2022 00:00:00 GMT", "old"},
        Case{"unmarked", Answer::html("old"), nothing, current, "", "new"},
        Case{"shortened", tagged, write("ol"), current, "", "new"},
        Case{"damaged", tagged, write("odd"), current, "", "new"},
        Case{"damaged, and the server fails", tagged, write("odd"), Answer::html("", 503), "", ""},
        Case{"failing", tagged, nothing, Answer::html("", 503), "\"1\"", "old", true},
        Case{"the server fails, and there is no ETag", Answer::html("old"), nothing,
             Answer::html("", 503), "", "old", true},
        Case{"cut off", tagged, nothing, Answer::html("new").closedAfter(1), "\"1\"", "old", true},
        Case{"a portal", tagged, nothing, Answer::html("<html>sign in"), "\"1\"", "old", true},
        Case{"gone", tagged, nothing, Answer::html("", 404), "\"1\"", ""},
        Case{"nonsense", Answer::html("old"), nothing, same, "", ""}}) {
    server.forgetRequests();
    std::filesystem::remove_all(*foundation::cachesDirectory());
    server.on("/a.png", {first, second});
    const auto fetched = fetch("/a.png");
    ASSERT_TRUE(fetched) << what;
    then(fetched->path);
    const auto again = fetch("/a.png");
    const auto request = server.requests().at(1);
    EXPECT_EQ(
        request.field("If-None-Match").value_or(request.field("If-Modified-Since").value_or("")),
        condition)
        << what;
    ASSERT_EQ(again.has_value(), !contents.empty()) << what;
    if (!again) continue;
    EXPECT_EQ(foundation::readFile(again->path, 100), contents) << what;
    EXPECT_EQ(again->remark.empty(), !isEarlier) << what << again->remark;
  }
}

TEST_F(FileFetchTest, KeepsFilesOfOneNameApartByTheirUrls) {
  MisbehavingServer other;
  server.on("/a.png", Answer::html("first").with("ETag", "\"1\""));
  other.on("/a.png", [](const ReceivedRequest& request) {
    return request.field("If-None-Match") ? Answer::html("", 304) : Answer::html("second");
  });
  const std::string own = fetch("/a.png").value().path;
  const FileFetch::Outcome foreign = fetch(other.root("/a.png"), "maps");
  EXPECT_EQ(foreign.value().path, own) << "the same folder";
  EXPECT_EQ(foundation::readFile(own, 100), "second");
  const auto url = [](const std::string& text) { return *foundation::Url::parse(text); };
  EXPECT_EQ(HttpDownloader::folderFor(url("http://H:80/a"), "mall"), "http-h-80/mall");
  EXPECT_EQ(HttpDownloader::folderFor(url("https://user:word@h/a"), "mall"), "https-h-443/mall");
  for (const std::string slug : {"", "..", ".hidden", "a/b"}) {
    const std::string folder = HttpDownloader::folderFor(url("http://h/a"), slug);
    EXPECT_EQ(std::count(folder.begin(), folder.end(), '/'), 1) << folder;
    EXPECT_EQ(folder.find("/."), std::string::npos) << folder;
  }
  server.on("/.a.png.origin", Answer::html("an invalid note"));
  EXPECT_EQ(fetch("/.a.png.origin").value().path.find("/.a"), std::string::npos);
}

TEST_F(FileFetchTest, TellsWhyAFileCannotBeKept) {
  server.on("/a.png", Answer::html("picture"));
  foundation::writeFileAtomically(*foundation::cachesDirectory() / "maps", "");
  EXPECT_THAT(fetch("/a.png").error().description,
              testing::AllOf(testing::HasSubstr("cannot be cached: cannot create the folder"),
                             testing::EndsWith("Not a directory")));
  std::filesystem::create_directories(*foundation::cachesDirectory() / "full" / "a.png" / "x");
  EXPECT_THAT(fetch(server.root("/a.png"), "full").error().description,
              testing::EndsWith("a.png: Is a directory"));
}

}  // namespace
}  // namespace orivanta::test
