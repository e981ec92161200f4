#include "Source/Loading/LoadMonitor.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "Tests/Support/Awaited.hpp"

namespace orivanta {
namespace {

network::HttpUrlResponse responseFrom(const std::string& url, int status,
                                      const std::string& next = "") {
  network::HttpUrlResponse response{foundation::Url::parse(url), status, {}};
  if (!next.empty()) response.headerFields = {{"Link", "<" + next + ">; rel=\"next\""}};
  return response;
}

using Ending = test::Awaited<std::pair<std::vector<LoadFailure>, bool>>;

std::shared_ptr<LoadMonitor> monitor(const Ending& ending, std::size_t collections,
                                     network::LowestRate lowestRate = {}) {
  return std::make_shared<LoadMonitor>(
      "http://h/1/", collections, lowestRate,
      LoadMonitor::Handlers{nullptr, [ending](std::vector<LoadFailure> failures, bool complete) {
                              ending.give({std::move(failures), complete});
                            }});
}

TEST(LoadMonitor, TellsWhyACollectionFailed) {
  using foundation::failure;
  using foundation::Result;
  struct Case {
    std::optional<int> status;  // of the page; absent if no page arrives
    Result<void> outcome;
    LoadProblem problem;
    std::string reason;  // "" if there is none
  };
  const std::string page = "http://h/1/map";
  const std::string status = page + " returned HTTP status ";
  const std::vector<Case> cases = {
      {200, Result<void>(), {}, ""},
      {204, Result<void>(), {}, ""},
      {401, Result<void>(), LoadProblem::refused, status + "401: wrong user name or password"},
      {403, Result<void>(), LoadProblem::refused,
       status + "403: this account does not have access"},
      {404, Result<void>(), LoadProblem::notFound,
       status + "404: not found; is the endpoint correct?"},
      {410, Result<void>(), LoadProblem::otherStatus, status + "410"},
      {503, failure("", 1, ""), LoadProblem::otherStatus,
       status + "503: the server failed to process the request"},
      {200, failure("", 1, ""), LoadProblem::unusable,
       page + " returned a response that is not valid JSON"},
      {200, failure("memory", 1, "too large"), LoadProblem::unusable, page + ": too large"},
      {std::nullopt, failure("curl", 7, "Couldn't connect"), LoadProblem::noAnswer,
       "no response from http://h/1/map: Couldn't connect"},
      {200, failure("curl", 56, "reset"), LoadProblem::noAnswer,
       "no response from http://h/1/map: reset"},
      {200,
       failure(network::insecureStep(*foundation::Url::parse("https://h"),
                                     *foundation::Url::parse("x"))),
       LoadProblem::insecure, "https://h leads to x, which is not encrypted"},
  };
  for (const Case& each : cases) {
    const Ending ending;
    const auto load = monitor(ending, 1);
    if (each.status) load->pageReceived("map", responseFrom(page, *each.status), 2);
    load->collectionEnded("map", each.outcome);
    load->finish();
    const auto [failures, complete] = ending.take();
    EXPECT_TRUE(complete);
    ASSERT_EQ(failures.size(), each.reason.empty() ? 0U : 1U) << each.reason;
    for (const LoadFailure& failure : failures) {
      EXPECT_EQ(failure.collection, "map");
      EXPECT_EQ(failure.problem, each.problem) << each.reason;
      EXPECT_EQ(failure.statusCode, each.status.value_or(0));
      EXPECT_EQ(failure.reason, each.reason);
    }
  }
}

TEST(LoadMonitor, GivesUpLoadsThatDoNotEnd) {
  struct {
    std::vector<std::string> nextPages;  // for each page of one collection
    std::size_t pageBytes;
    std::string reason;  // "" if there is none
    network::LowestRate lowestRate = {};
  } const cases[] = {
      {{"2", "1", "2"}, 1, "the page links of node are circular: they lead back to http://h/1/2"},
      {{"2", "3", ""}, std::size_t{300} << 20U, ""},
      {{"2", "3", "4", ""}, std::size_t{300} << 20U, "the server sent more than 1024 MiB"},
      {std::vector<std::string>(100'001, "#"), 1, "node has more than 100000 pages"},
      {{"2", ""},
       1000,
       "the pages of node arrive too slowly: less than 1000000000000000 bytes per second",
       {1'000'000'000'000'000, std::chrono::seconds(0)}},
      {{"2", ""}, 1000, "", {1'000'000'000'000'000, std::chrono::hours(1)}},
      {{"2", ""}, 1000, "", {0, std::chrono::seconds(0)}},
  };
  for (const auto& test : cases) {
    const Ending ending;
    const auto load = monitor(ending, 6, test.lowestRate);
    // All responses have the same URL, as after a redirect.
    for (std::size_t page = 0; page < test.nextPages.size(); ++page) {
      std::string next = test.nextPages[page];
      if (next == "#") next = std::to_string(page);
      load->pageReceived("node", responseFrom("http://h/1/all", 200, next), test.pageBytes);
    }
    load->finish();
    const auto [failures, complete] = ending.take();
    EXPECT_EQ(complete, test.reason.empty());
    ASSERT_EQ(failures.size(), test.reason.empty() ? 0U : 1U) << test.reason;
    for (const LoadFailure& failure : failures) {
      EXPECT_EQ(failure.problem, LoadProblem::endless);
      EXPECT_EQ(failure.reason, test.reason);
    }
  }
}

}  // namespace
}  // namespace orivanta
