#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <thread>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Source/HttpSession.hpp"
#include "Tests/Support/ChainCourse.hpp"
#include "Tests/Support/MisbehavingServer.hpp"

namespace orivanta {
namespace {

using foundation::Error;
using test::Answer;
using test::Awaited;
using test::Course;
using test::courseOf;
using test::Latch;
using test::MisbehavingServer;
using test::sessionFor;
using test::Texts;
using test::withPage;

TEST(HttpResponse, FoldsThePagesOfAChainInOrder) {
  const Answer a = Answer::json(R"(["1"])");
  const Answer b = Answer::json(R"(["2"])");
  const Answer c = Answer::json(R"(["3"])");
  const Answer notFound = Answer::json(R"({"error": "none"})", 404);
  const struct {
    std::string name;
    std::vector<std::pair<std::string, Answer>> answers;  // by path relative to the root
    Texts completed;
  } cases[] = {
      {"one page", {{"a", a}}, {"1"}},
      {"empty page", {{"a", Answer::json("[]")}}, {}},
      {"three pages", {{"a", a.next("/1/b")}, {"b", b.next("/1/c")}, {"c", c}}, {"1", "2", "3"}},
      {"relative next", {{"a", a.next("b")}, {"b", b}}, {"1", "2"}},
      {"next among others",
       {{"a", a.with("Link", "<c>; rel=\"last\", <b>; title=\"x\"; rel=\"next\"")}, {"b", b}},
       {"1", "2"}},
      {"next without quotes", {{"a", a.with("Link", "<b>;rel=next")}, {"b", b}}, {"1", "2"}},
      {"lower-case field", {{"a", a.with("link", "<b>; rel=\"next\"")}, {"b", b}}, {"1", "2"}},
      {"two fields", {{"a", a.with("Link", "<c>; rel=\"last\"").next("b")}, {"b", b}}, {"1", "2"}},
      {"next that is not a URL", {{"a", a.next("b b")}, {"b", b}}, {"1"}},
      {"empty next", {{"a", a.next("")}}, {"1"}},
      {"two relations in one", {{"a", a.with("Link", "<b>; rel=\"next prev\"")}}, {"1"}},
      {"error body that is JSON", {{"a", notFound}}, {"object"}},
      {"server error with pages",
       {{"a", Answer::json(R"(["1"])", 500).next("b")}, {"b", notFound.next("c")}, {"c", c}},
       {"1", "object", "3"}},
      {"chunked", {{"a", a.chunked().next("b")}, {"b", b.chunked()}}, {"1", "2"}},
      {"compressed", {{"a", a.gzipped().next("b")}, {"b", b.gzipped().chunked()}}, {"1", "2"}},
      {"redirect", {{"a", Answer::redirect("x/b")}, {"x/b", b.next("c")}, {"x/c", c}}, {"2", "3"}},
  };
  for (const auto& chain : cases) {
    SCOPED_TRACE(chain.name);
    MisbehavingServer server;
    for (const auto& [path, answer] : chain.answers) server.on("/1/" + path, answer);
    const Course course = courseOf(sessionFor(server.root()));
    EXPECT_EQ(course.completed, chain.completed);
    EXPECT_FALSE(course.error) << course.error->description;
  }
}

TEST(HttpResponse, AFailureOnAnyPageEndsTheChainWithItsError) {
  const std::string longText = R"([")" + std::string(100'000, 'x') + R"("])";
  const Answer sound = Answer::json(longText);
  Answer damaged = sound.gzipped();
  damaged.body[20] ^= 1;
  Answer shortened = sound.gzipped();
  shortened.body.resize(shortened.body.size() / 2);
  Answer huge = sound;
  huge.announcedBytes = 1ULL << 40U;
  const struct {
    std::string name;
    Answer first;
    std::string domain;
    int code;
  } cases[] = {
      {"HTML", Answer::html("<p>Not today"), "", 1},
      {"empty body", Answer::json(""), "", 1},
      {"no body", Answer::json("", 204), "", 1},
      {"bare text", Answer::json("\"1\""), "", 1},
      {"truncated JSON", Answer::json(R"([{"id": "1"}, {"id)"), "", 1},
      {"connection closed in the body", sound.closedAfter(50'000), "curl", 18},
      {"connection reset in the body", sound.resetAfter(50'000), "curl", 56},
      {"connection reset at once", sound.resetAfter(0), "curl", 56},
      {"chunked body cut", sound.chunked().closedAfter(50'000), "curl", 18},
      {"damaged compression", damaged, "http", 2},
      {"compressed body cut", shortened, "http", 2},
      {"text wrongly declared as compressed", sound.with("Content-Encoding", "gzip"), "http", 2},
      {"unknown compression", sound.with("Content-Encoding", "br"), "http", 1},
      {"endless redirects", Answer::redirect("b"), "curl", 47},
      {"redirect to a file", Answer::redirect("file:///etc/hostname"), "curl", 1},
      {"body announced too large", huge, "curl", 63},
  };
  for (const auto& failure : cases)
    for (const bool onSecondPage : {false, true}) {
      SCOPED_TRACE(failure.name + (onSecondPage ? ", page 2" : ", page 1"));
      MisbehavingServer server;
      server.on("/1/a", Answer::json(R"(["1"])").next("b"));
      server.on(onSecondPage ? "/1/b" : "/1/a", failure.first);
      server.on(onSecondPage ? "/1/never" : "/1/b", failure.first);
      const Course course = courseOf(sessionFor(server.root()));
      EXPECT_FALSE(course.completed);
      EXPECT_EQ(course.folds, onSecondPage ? 1 : 0);
      ASSERT_TRUE(course.error);
      EXPECT_EQ(course.error->domain, failure.domain) << course.error->description;
      EXPECT_EQ(course.error->code, failure.code) << course.error->description;
    }
}

TEST(HttpResponse, APageThatDoesNotFitEndsTheChain) {
  for (const char* next : {"", "b"}) {
    MisbehavingServer server;
    server.on("/1/a", Answer::json(R"(["1"])").next(next));
    const Awaited<Error> failed;
    sessionFor(server.root())
        .get("a")
        .onPage(Texts(), [](Texts, const RawData&) -> Texts { throw std::bad_alloc(); })
        .onComplete([](const Texts&) { ADD_FAILURE(); })
        .onError([=](const Error& error) { failed.give(error); });
    EXPECT_EQ(failed.take().domain, "memory");
  }
}

TEST(HttpResponse, TheNextPageIsRequestedBeforeThisOneIsFolded) {
  MisbehavingServer server;
  server.on("/1/a", Answer::json(R"(["1"])").next("b"));
  server.on("/1/b", Answer::json(R"(["2"])"));
  const Awaited<Texts> completed;
  sessionFor(server.root())
      .get("a")
      .onPage(Texts(),
              [&server](Texts texts, const RawData& page) {
                EXPECT_TRUE(server.waitForRequests("/1/b", 1));
                return withPage(std::move(texts), page);
              })
      .onComplete([=](Texts texts) { completed.give(std::move(texts)); });
  EXPECT_EQ(completed.take(), Texts({"1", "2"}));
}

TEST(HttpResponse, AnAnswerThatComesBeforeTheChainIsCompleteIsKept) {
  MisbehavingServer server;
  server.on("/1/a", Answer::json(R"(["1"])"));
  server.on("/1/wrong", Answer::html("<p>"));
  const HttpSession session = sessionFor(server.root());
  const Awaited<Texts> completed;
  const Awaited<Error> failed;
  {
    const auto early = session.get("a");
    const auto earlyFailure = session.get("wrong");
    ASSERT_TRUE(server.waitForRequests("/1/a", 1));
    ASSERT_TRUE(server.waitForRequests("/1/wrong", 1));
    // Runs another chain to its end; the responses have arrived by then.
    EXPECT_TRUE(courseOf(session).completed);
    early.onPage(Texts(), withPage).onComplete([=](Texts texts) {
      completed.give(std::move(texts));
    });
    earlyFailure.onError([=](const Error& error) { failed.give(error); });
  }
  EXPECT_EQ(completed.take(), Texts({"1"}));
  EXPECT_EQ(failed.take().code, 1);
}

TEST(HttpResponse, TheLastPageIsFoldedIfThereIsWhatItTakes) {
  struct {
    bool buffer, pageCallback, completeCallback;
    int folds;
    bool valid;
    std::optional<Texts> completed;
  } const cases[] = {{true, true, true, 1, false, Texts({"0", "1"})},
                     {true, true, false, 0, false, std::nullopt},
                     {false, true, true, 0, true, std::nullopt},
                     {true, false, true, 0, true, std::nullopt}};
  for (const auto& test : cases) {
    const auto delegate = std::make_shared<CustomUrlSessionDelegate>(nullptr, nullptr);
    const HttpResponse<Texts> response(network::UrlSession::make({}, delegate), delegate);
    int folds = 0;
    std::optional<Texts> completed;
    if (test.buffer) response.pageBuffer = Texts({"0"});
    if (test.pageCallback)
      response.pageCallback = [&](Texts texts, const RawData& page) {
        ++folds;
        return withPage(std::move(texts), page);
      };
    if (test.completeCallback)
      response.completeCallback = [&](Texts texts) {
        EXPECT_FALSE(response.session->isValid());
        completed = std::move(texts);
      };
    response.errorCallback = [](const Error&) { ADD_FAILURE(); };
    std::string body = R"(["1"])";
    response.sessionDelegate->onSuccess({std::nullopt, 200, {}}, body);
    EXPECT_EQ(folds, test.folds);
    EXPECT_EQ(response.session->isValid(), test.valid);
    EXPECT_EQ(completed, test.completed);
    EXPECT_EQ(response.pageBuffer, test.buffer ? std::optional(Texts({"0"})) : std::nullopt);
    response.session->invalidateAndCancel();
  }
}

TEST(HttpResponse, StartsByItselfAndIsCompletedThroughItsProperties) {
  MisbehavingServer server;
  server.on("/1/a", Answer::json(R"(["1"])"));
  const Awaited<Texts> completed;
  {
    const HttpResponse<Texts> response(*foundation::Url::parse(server.root("/1/a")), "Own x", "fr");
    EXPECT_FALSE(response.pageBuffer || response.pageCallback || response.completeCallback ||
                 response.errorCallback);
    EXPECT_EQ(response.session->configuration().identifier, server.root("/1/a"));
    const std::vector<HttpResponse<Texts>> copies(1, response);
    copies[0].pageBuffer = Texts({"0"});
    copies[0].pageCallback = withPage;
    copies[0].completeCallback = [=](Texts texts) { completed.give(std::move(texts)); };
    EXPECT_EQ(response.pageBuffer, Texts({"0"}));
  }
  EXPECT_EQ(completed.take(), Texts({"0", "1"}));
  EXPECT_EQ(server.requests().at(0).field("Authorization"), "Own x");
  EXPECT_EQ(server.requests().at(0).field("Accept-Language"), "fr");
}

TEST(CustomUrlSessionDelegate, ReportsTheErrorOfAnInvalidSessionAndFinishedEvents) {
  std::vector<Error> errors;
  std::vector<std::string> lines;
  CustomUrlSessionDelegate delegate(nullptr, [&](const Error& error) { errors.push_back(error); });
  foundation::setDiagnosticSink([&](std::string_view line) { lines.emplace_back(line); });
  delegate.didBecomeInvalid(std::nullopt);
  delegate.didBecomeInvalid(Error{"d", 2, "t"});
  delegate.didFinishBackgroundEvents();
  foundation::setDiagnosticSink(nullptr);
  EXPECT_EQ(errors, std::vector({Error{"d", 2, "t"}}));
  EXPECT_EQ(lines, std::vector<std::string>({"finishedeventsforbackgroundsession"}));
}

TEST(HttpResponse, ALinkFromHttpsToHttpEndsAChainThatStaysSecure) {
  const std::string start = "https://u:p@h/a";
  // A redirect may lead to a URL that cannot be parsed; the response then has no URL.
  for (const auto& [staysSecure, url] : {std::pair(true, foundation::Url::parse(start)),
                                         {true, std::nullopt},
                                         {false, foundation::Url::parse(start)}}) {
    const auto delegate = std::make_shared<CustomUrlSessionDelegate>(nullptr, nullptr);
    const auto session = network::UrlSession::make({start, {}, {{}, staysSecure}}, delegate);
    const HttpResponse<int> response(session, delegate);
    std::string told;
    response.errorCallback = [&](const Error& error) {
      EXPECT_FALSE(session->isValid());
      told = error.description;
    };
    std::string body = "[]";
    delegate->onSuccess({url, 200, {{"Link", "<http://127.0.0.1:1/b>; rel=\"next\""}}}, body);
    EXPECT_EQ(told, staysSecure
                        ? "https://h/a leads to http://127.0.0.1:1/b, which is not encrypted"
                        : "");
    EXPECT_EQ(session->isValid(), !staysSecure);
    session->invalidateAndCancel();
  }
}

TEST(HttpResponse, AChainThatRunsInACircleEndsWhenItsSessionIsInvalidated) {
  for (const bool fromWithin : {true, false}) {
    SCOPED_TRACE(fromWithin ? "from the page callback" : "from another thread");
    MisbehavingServer server;
    server.on("/1/a", Answer::json("[]").next("a"));
    const auto released = std::make_shared<Latch>();
    const auto fifthPage = std::make_shared<Latch>();
    const auto ends = std::make_shared<std::atomic<int>>(0);
    auto token = test::opensWhenGone(released);
    std::shared_ptr<network::UrlSession> running;
    {
      const auto start = sessionFor(server.root()).get("a");
      running = start.session;
      start
          .onPage(0,
                  [=, session = running](int pages, const RawData&) {
                    if (pages == 5) {
                      if (fromWithin) session->invalidateAndCancel();
                      fifthPage->open();
                    }
                    return pages + 1;
                  })
          .onComplete([ends, token](int) { ++*ends; })
          .onError([ends, token](const Error&) { ++*ends; });
    }
    token.reset();
    ASSERT_TRUE(fifthPage->wait());
    running->invalidateAndCancel();
    ASSERT_TRUE(released->wait());
    // Canceled requests have ended when a later request has been answered.
    const auto requestsAfterAnother = [&server] {
      courseOf(sessionFor(server.root()), "another");
      return server.requests("/1/a").size();
    };
    const std::size_t requests = requestsAfterAnother();
    EXPECT_GE(requests, 6U);
    EXPECT_EQ(requestsAfterAnother(), requests);
    EXPECT_EQ(*ends, 0);
  }
}

TEST(HttpResponse, CallbacksComeFromOtherThreadsAndOneAtATimeAndBlockOnlyTheirChain) {
  MisbehavingServer server;
  for (const auto& [path, next] : {std::pair("a", "b"), {"b", "c"}})
    server.on(std::string("/1/") + path, Answer::json(R"(["1"])").next(next));
  server.on("/1/c", Answer::json(R"(["1"])"));
  const HttpSession session = sessionFor(server.root());
  const std::thread::id caller = std::this_thread::get_id();
  std::vector<Awaited<Texts>> chains(20);
  const auto allAreThere = std::make_shared<Latch>();
  std::atomic<int> there = 0;
  for (const auto& completed : chains) {
    // Plain members instead of atomic ones, so that the thread sanitizer checks them.
    struct Use {
      bool inside = false;
      int pages = 0;
    };
    const auto use = std::make_shared<Use>();
    session.get("a")
        .onPage(Texts(),
                [=](Texts texts, const RawData& page) {
                  EXPECT_NE(std::this_thread::get_id(), caller);
                  EXPECT_FALSE(std::exchange(use->inside, true));
                  ++use->pages;
                  texts = withPage(std::move(texts), page);
                  use->inside = false;
                  return texts;
                })
        .onComplete([=, &there](Texts texts) {
          EXPECT_NE(std::this_thread::get_id(), caller);
          EXPECT_EQ(use->pages, 3);
          if (++there == 20) allAreThere->open();
          EXPECT_TRUE(allAreThere->wait());
          completed.give(std::move(texts));
        });
  }
  for (const auto& completed : chains) EXPECT_EQ(completed.take(), Texts({"1", "1", "1"}));
}

TEST(HttpResponseDeathTest, NullStopsTheProgram) {
  const auto delegate = std::make_shared<CustomUrlSessionDelegate>(nullptr, nullptr);
  EXPECT_DEATH(HttpResponse<int>(nullptr, delegate), "unexpectedly found nil");
  EXPECT_DEATH(HttpResponse<int>(network::UrlSession::make({}, delegate), nullptr),
               "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta
