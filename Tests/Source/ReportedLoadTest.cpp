#include "Apps/Command/LoadMonitor.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <vector>

namespace orivanta::command {
namespace {

network::HttpUrlResponse responseFrom(const std::string& url, int status,
                                      const std::string& next = "") {
  network::HttpUrlResponse response{foundation::Url::parse(url), status, {}};
  if (!next.empty()) response.headerFields = {{"Link", "<" + next + ">; rel=\"next\""}};
  return response;
}

TEST(LoadMonitor, TellsWhyACollectionFailed) {
  using foundation::Error;
  struct Case {
    std::optional<int> status;  // of a page, when one comes
    std::optional<Error> error;
    std::string reason;  // "" for none
  };
  const std::vector<Case> cases = {
      {200, std::nullopt, ""},
      {204, std::nullopt, ""},
      {401, std::nullopt,
       "http://h/1/map answered with HTTP status 401: wrong user name or password"},
      {403, std::nullopt,
       "http://h/1/map answered with HTTP status 403: this account may not read it"},
      {404, std::nullopt,
       "http://h/1/map answered with HTTP status 404: the server does not have it; is the endpoint "
       "right?"},
      {410, std::nullopt, "http://h/1/map answered with HTTP status 410"},
      {503, Error{"", 1, ""},
       "http://h/1/map answered with HTTP status 503: the server has a problem of its own"},
      {200, Error{"", 1, ""}, "http://h/1/map answered with a body that is no JSON"},
      {std::nullopt, Error{"curl", 7, "Couldn't connect"},
       "no answer from http://h/1/map: Couldn't connect"},
      {200, Error{"curl", 56, "reset"}, "no answer from http://h/1/map: reset"},
  };
  for (const Case& each : cases) {
    LoadMonitor monitor("http://h/1/", nullptr);
    monitor.begin(1);
    if (each.status) monitor.pageReceived("map", responseFrom("http://h/1/map", *each.status), 2);
    monitor.collectionEnded("map", each.error);
    monitor.finish();
    const auto failures = monitor.wait();
    ASSERT_EQ(failures.size(), each.reason.empty() ? 0U : 1U) << each.reason;
    for (const LoadFailure& failure : failures) EXPECT_EQ(failure.reason, each.reason);
  }
}

TEST(LoadMonitor, GivesUpLoadsThatDoNotEnd) {
  struct {
    std::vector<std::string> nextPages;  // by the pages of one collection
    std::size_t pageBytes;
    std::string reason;  // "" for none
  } const cases[] = {
      {{"2", "1", "2"}, 1, "the pages of node run in a circle, back to http://h/1/2"},
      {{"2", "3", ""}, std::size_t{300} << 20U, ""},
      {{"2", "3", "4", ""}, std::size_t{300} << 20U, "the server sent more than 1024 MiB"},
      {std::vector<std::string>(100'001, "#"), 1, "node has more than 100000 pages"},
  };
  for (const auto& test : cases) {
    LoadMonitor monitor("http://h/1/", nullptr);
    monitor.begin(6);
    std::thread server([&] {
      // Every page answers from one URL, as behind a redirect.
      for (std::size_t page = 0; page < test.nextPages.size(); ++page) {
        std::string next = test.nextPages[page];
        if (next == "#") next = std::to_string(page);
        monitor.pageReceived("node", responseFrom("http://h/1/all", 200, next), test.pageBytes);
      }
      if (test.reason.empty()) monitor.finish();
    });
    const auto failures = monitor.wait();
    server.join();
    ASSERT_EQ(failures.size(), test.reason.empty() ? 0U : 1U) << test.reason;
    for (const LoadFailure& failure : failures) {
      EXPECT_TRUE(failure.endless);
      EXPECT_EQ(failure.reason, test.reason);
    }
  }
}

TEST(LoadMonitor, CountsUntilTheLoadEndsAndAnew) {
  LoadProgress latest;
  int reports = 0;
  LoadMonitor monitor("http://h/1/", [&](const LoadProgress& progress) {
    latest = progress;
    ++reports;
  });
  monitor.begin(6);
  monitor.pageReceived("map", responseFrom("http://h/1/map", 500), 10);
  monitor.pageReceived("node", responseFrom("http://h/1/node", 200), 5);
  monitor.collectionEnded("map", std::nullopt);
  EXPECT_EQ(latest.collectionsDone, 1U);
  EXPECT_EQ(latest.collections, 6U);
  EXPECT_EQ(latest.pages, 2U);
  EXPECT_EQ(latest.bytes, 15U);
  monitor.finish();
  monitor.pageReceived("node", responseFrom("http://h/1/node?page=2", 200), 5);
  EXPECT_EQ(reports, 4);
  EXPECT_EQ(monitor.wait().size(), 1U);
  monitor.begin(1);
  EXPECT_EQ(latest.pages, 0U);
  monitor.finish();
  EXPECT_TRUE(monitor.wait().empty());
}

}  // namespace
}  // namespace orivanta::command
