#include "Platform/Network/UrlSession.hpp"

#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdlib>
#include <thread>

#include "Platform/Network/Curl/Inflate.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::network {
namespace {

using test::Answer;
using test::Latch;
using test::MisbehavingServer;

foundation::Url url(const std::string& text) { return *foundation::Url::parse(text); }

// Records the reports; a test may add an action for each report.
class Recorder : public UrlSessionDelegate {
 public:
  struct Report {
    HttpUrlResponse response;
    std::optional<foundation::Error> error;
    std::string body;
  };

  void didReceiveData(std::string_view bytes) override {
    received_ += bytes;
    if (onData) onData();
  }

  void didComplete(const HttpUrlResponse& response,
                   const std::optional<foundation::Error>& error) override {
    if (onComplete) onComplete();
    const std::lock_guard lock(mutex_);
    reports_.push_back({response, error, std::exchange(received_, "")});
    reported_.notify_all();
  }

  void didBecomeInvalid(const std::optional<foundation::Error>& error) override {
    if (onInvalid) onInvalid(error);
  }

  // Blocks until `count` reports have arrived.
  std::vector<Report> reports(std::size_t count) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(reported_.wait_for(lock, test::patience, [&] { return reports_.size() >= count; }));
    return reports_;
  }

  std::function<void()> onData;
  std::function<void()> onComplete;
  std::function<void(const std::optional<foundation::Error>&)> onInvalid;

 private:
  std::string received_;  // no lock needed: the session reports one at a time
  std::mutex mutex_;
  std::condition_variable reported_;
  std::vector<Report> reports_;
};

// A session with a recorder. The session is invalidated at the end of the test.
struct Recorded {
  std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
  std::shared_ptr<UrlSession> session;

  explicit Recorded(TransferRules rules = {})
      : session(UrlSession::make({"test", {{"X-Own", "1"}}, rules}, recorder)) {}
  ~Recorded() { session->invalidateAndCancel(); }

  Recorder::Report get(const std::string& address) {
    session->startDataTask(url(address));
    return recorder->reports(++count_).back();
  }

 private:
  std::size_t count_ = 0;
};

TEST(UrlSession, ReportsTheBodyTheHeadAndTheUrlThatAnswered) {
  MisbehavingServer server;
  server.on("/a", Answer::redirect("/b?c=1").with("X-Redirect", "1"));
  server.on("/b", Answer::json("[1]", 418)
                      .with("X-Twice", "1")
                      .with("x-twice", "2,3")
                      .with("X-Empty", "")
                      .with("X-Blanks", " \t a b \t"));
  Recorded recorded;
  const auto report = recorded.get(server.root("/a"));
  EXPECT_FALSE(report.error);
  EXPECT_EQ(report.body, "[1]");
  const HttpUrlResponse& response = report.response;
  EXPECT_EQ(response.statusCode, 418);
  EXPECT_EQ(response.url, url(server.root("/b?c=1")));
  EXPECT_EQ(response.headerField("X-TWICE"), "1, 2,3");
  EXPECT_EQ(response.headerField("x-empty"), "");
  EXPECT_EQ(response.headerField("x-blanks"), "a b");
  EXPECT_FALSE(response.headerField("X-Redirect"));
  EXPECT_FALSE(response.headerField("X-Twic"));
  EXPECT_EQ(response.headerFields.at(1).first, "X-Twice");
  EXPECT_EQ(server.requests("/b").at(0).field("X-Own"), "1");
  EXPECT_EQ(server.requests("/b").at(0).field("Accept-Encoding"), "gzip");
}

TEST(UrlSession, FieldsBehindTheBodyDoNotCount) {
  MisbehavingServer server;
  Answer answer = Answer::json("[1]").with("Link", "<a>; rel=next").chunked();
  answer.trailer = "Link: <b>; rel=next\r\n";
  server.on("/a", answer);
  Recorded recorded;
  EXPECT_EQ(recorded.get(server.root("/a")).response.headerField("Link"), "<a>; rel=next");
}

TEST(UrlSession, RefusesABodyThatInflatesBeyondTheLimit) {
  // A body may have several gzip members: 33 of 16 MiB each exceed 512 MiB.
  const std::string member = test::gzipped(std::string(16U << 20U, ' '));
  Answer bomb = Answer::json("").with("Content-Encoding", "gzip");
  for (int i = 0; i < 33; ++i) bomb.body += member;
  MisbehavingServer server;
  server.on("/bomb", bomb);
  bomb.body = member + member;
  server.on("/large", bomb);
  server.on("/empty", Answer::json("").with("Content-Encoding", "gzip"));
  Recorded recorded;
  EXPECT_FALSE(recorded.get(server.root("/empty")).error);
  const auto report = recorded.get(server.root("/bomb"));
  ASSERT_TRUE(report.error);
  EXPECT_EQ(report.error->domain, "http");
  EXPECT_TRUE(report.body.empty());
  EXPECT_EQ(recorded.get(server.root("/large")).body.size(), 32U << 20U);
}

TEST(UrlSession, EndsATransferBelowTheLowestRate) {
  MisbehavingServer server;
  const std::string body(1'000'000, ' ');
  server.on("/even", Answer::json(body).trickled());
  server.on("/bursts", Answer::json(body).trickled(100'000));  // 25 kB/s, with pauses
  Recorded recorded(strictRules({1000, std::chrono::seconds(1)}));
  for (const char* const path : {"/even", "/bursts"}) {
    const auto error = recorded.get(server.root(path)).error;
    ASSERT_TRUE(error) << path;
    EXPECT_EQ(error->code, 28);
  }
}

TEST(UrlSession, ItsBudgetPaysForTheHeadToo) {
  MisbehavingServer server;
  server.on("/a", Answer::json("[]").with("X-Large", std::string(5000, 'a')));
  TransferRules rules;
  rules.budget = std::make_shared<foundation::MemoryBudget>(2000);
  const auto error = Recorded(rules).get(server.root("/a")).error;
  ASSERT_TRUE(error);
  EXPECT_EQ(error->domain, foundation::memoryErrorDomain);
}

TEST(Gunzipped, TakesNoMoreMemoryThanItMay) {
  const auto members = test::gzipped(std::string(600, ' ')) + test::gzipped("[]");
  const auto bytes = gunzipped(members, 700);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(*bytes, std::string(600, ' ') + "[]");
  EXPECT_LE(bytes->capacity(), 700U);
}

TEST(UrlSession, LeavesHttpsOnlyIfItsRulesLetIt) {
  const test::TemporaryFolder folder;
  const auto certificate = folder.path() / "certificate.pem";
  const std::string make =
      "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -subj /CN=test "
      "-addext subjectAltName=IP:127.0.0.1 -out " +
      certificate.string() + " -keyout " + certificate.string() + ".key >/dev/null 2>&1";
  ASSERT_EQ(std::system(make.c_str()), 0);
  const test::EnvironmentVariable trusted("SSL_CERT_FILE", certificate.string());
  MisbehavingServer server;
  MisbehavingServer secure(certificate);
  const std::string secureHost = secure.root("").substr(std::string("https://").size());
  server.on("/end", Answer::json("[]"));
  server.on("/up", Answer::redirect("https://me:pass@" + secureHost + "/down"));
  secure.on("/down", Answer::redirect(server.root("/end")));
  secure.on("/along", Answer::redirect("/end"));
  secure.on("/end", Answer::json("[]"));
  Recorded strict(strictRules());
  Recorded lenient;
  for (const std::string& start : {server.root("/up"), secure.root("/down")}) {
    EXPECT_EQ(
        strict.get(start).error->description,
        secure.root("/down") + " leads to " + server.root("/end") + ", which is not encrypted");
    EXPECT_TRUE(server.requests("/end").empty());
    EXPECT_EQ(lenient.get(start).response.url, url(server.root("/end")));
    server.forgetRequests();
  }
  EXPECT_FALSE(strict.get(secure.root("/along")).error);
  {
    const test::EnvironmentVariable none("SSL_CERT_FILE", "");
    EXPECT_EQ(Recorded().get(secure.root("/end")).error->code, 60) << "not trusted";
  }
  EXPECT_FALSE(strict.get(server.root("/end")).error);
}

TEST(UrlSession, TasksOfOneSessionRunTogetherAndReportOneAtATime) {
  MisbehavingServer server;
  const auto latch = std::make_shared<Latch>();
  server.on("/held", Answer::json("[0]").held(latch));
  server.on("/a", Answer::json(std::string(100'000, ' ')));
  Recorded recorded;
  recorded.session->startDataTask(url(server.root("/held")));
  for (int i = 0; i < 20; ++i) recorded.session->startDataTask(url(server.root("/a")));
  // The recorder appends to one string without a lock: mixed reports would show in the sizes.
  for (const auto& report : recorded.recorder->reports(20)) EXPECT_EQ(report.body.size(), 100'000U);
  latch->open();
  EXPECT_EQ(recorded.recorder->reports(21).back().body, "[0]");
}

TEST(UrlSession, NothingButTheEndIsReportedAfterInvalidationWhichEndsTransfers) {
  MisbehavingServer server;
  const auto latch = std::make_shared<Latch>();
  server.on("/held", Answer::json("[0]").held(latch));
  server.on("/a", Answer::json("[1]"));
  const test::Awaited<std::optional<foundation::Error>> invalid;
  const auto recorder = std::make_shared<Recorder>();
  recorder->onInvalid = [invalid](const auto& error) { invalid.give(error); };
  const foundation::CancellationSource source;
  const auto session = UrlSession::make({.cancellation = source.token()}, recorder);
  session->startDataTask(url(server.root("/held")));
  ASSERT_TRUE(server.waitForRequests("/held", 1));
  session->startDataTask(url(server.root("/a")));
  recorder->reports(1);
  source.cancel();
  session->invalidateAndCancel();
  EXPECT_FALSE(session->isValid());
  session->startDataTask(url(server.root("/afterwards")));
  Recorded other;
  other.get(server.root("/b"));  // after its response the canceled request is gone
  latch->open();
  // If the transfer had continued, its connection would stay open for the next one.
  EXPECT_TRUE(server.waitForEndedConnections(1));
  EXPECT_EQ(recorder->reports(0).size(), 1U);
  EXPECT_FALSE(invalid.take());
  EXPECT_TRUE(server.requests("/afterwards").empty());
}

TEST(UrlSession, ADelegateMayInvalidateBetweenDataAndCompletion) {
  MisbehavingServer server;
  server.on("/a", Answer::json("[1]"));
  const auto released = std::make_shared<Latch>();
  {
    auto recorder = std::make_shared<Recorder>();
    const auto session = UrlSession::make({}, recorder);
    recorder->onData = [weak = std::weak_ptr(session)] { weak.lock()->invalidateAndCancel(); };
    recorder->onComplete = [token = test::opensWhenGone(released)] { ADD_FAILURE(); };
    session->startDataTask(url(server.root("/a")));
  }
  EXPECT_TRUE(released->wait());
}

TEST(UrlSession, StartingAndInvalidatingAtOnceFromSeveralThreadsIsSafe) {
  MisbehavingServer server;
  for (int round = 0; round < 50; ++round) {
    const auto session = UrlSession::make({}, std::make_shared<Recorder>());
    std::thread starter([&] {
      for (int i = 0; i < 5; ++i) session->startDataTask(url(server.root("/a")));
    });
    session->invalidateAndCancel();
    starter.join();
    session->invalidateAndCancel();
  }
}

}  // namespace
}  // namespace orivanta::network
