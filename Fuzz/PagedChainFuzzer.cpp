// Runs a chain of pages against a server whose responses are given by the input:
//
//   200                            the status; "lost" for a broken connection
//   Link: <?page=2>; rel="next"    headers, up to an empty line
//   At: http://h/elsewhere         not a header: the URL of the response, if not the requested one
//
//   [1, 2]                         the body, up to a line "%%"
//   %%
//
// The chain must request the pages that its links name, fold each page, and end once.
#include <charconv>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Fuzz/Fuzzer.hpp"
#include "Fuzz/StoppingLinks.hpp"
#include "Platform/Network/UrlTransport.hpp"
#include "Source/HttpSession.hpp"
#include "Tests/Support/Awaited.hpp"

namespace orivanta::network {
namespace {

class NoTransfer : public UrlTransfer {
 public:
  void cancel() override {}
};

// Responds to every request immediately.
class ScriptedTransport : public UrlTransport {
 public:
  void play(std::vector<UrlResult> answers) {
    const std::lock_guard lock(mutex_);
    answers_ = std::move(answers);
    requested_.clear();
  }

  std::vector<std::string> requested() {
    const std::lock_guard lock(mutex_);
    return requested_;
  }

  std::shared_ptr<UrlTransfer> start(UrlRequest request,
                                     std::function<void(UrlResult)> completed) override {
    completed(answer(request.url));
    return std::make_shared<NoTransfer>();
  }

  std::optional<foundation::Error> decodeBody(UrlResult&) override { return std::nullopt; }

 private:
  UrlResult answer(const foundation::Url& url) {
    const std::lock_guard lock(mutex_);
    requested_.push_back(url.absoluteString());
    if (requested_.size() > answers_.size()) return {foundation::Error{"lost", 1, ""}, {}, {}};
    UrlResult result = answers_[requested_.size() - 1];
    if (!result.response.headerField("At")) result.response.url = url;
    return result;
  }

  std::mutex mutex_;
  std::vector<UrlResult> answers_;
  std::vector<std::string> requested_;
};

ScriptedTransport& scriptedTransport() {
  static auto& instance = *new ScriptedTransport;
  return instance;
}

}  // namespace

UrlTransport& defaultTransport() { return scriptedTransport(); }

}  // namespace orivanta::network

namespace orivanta {
namespace {

using network::UrlResult;

struct Course {
  std::vector<std::string> requested;
  int folds = 0;
  int completions = 0;
  int errors = 0;

  friend bool operator==(const Course&, const Course&) = default;
};

UrlResult takeAnswer(std::string_view& script) {
  UrlResult answer;
  std::string_view text = fuzz::takeUpTo("\n%%\n", script);
  const std::string_view status = fuzz::takeUpTo("\n", text);
  if (status == "lost") answer.error = foundation::Error{"lost", 1, ""};
  std::from_chars(status.data(), status.data() + status.size(), answer.response.statusCode);
  for (;;) {
    std::string_view line = fuzz::takeUpTo("\n", text);
    if (line.empty()) break;
    const std::string_view name = fuzz::takeUpTo(": ", line);
    if (name == "At") answer.response.url = foundation::Url::parse(line);
    answer.response.headerFields.emplace_back(name, line);
  }
  answer.body = text;
  return answer;
}

// The expected behavior of the chain.
Course expectedCourse(const std::vector<UrlResult>& answers, foundation::Url url) {
  Course course;
  for (;;) {
    course.requested.push_back(url.absoluteString());
    const bool answered = course.requested.size() <= answers.size();
    UrlResult answer = answered ? answers[course.requested.size() - 1] : UrlResult();
    if (!answer.response.headerField("At")) answer.response.url = url;
    if (!answered || answer.error || !RawData::parse(answer.body)) {
      course.errors = 1;
      return course;
    }
    ++course.folds;
    const auto next = detail::nextPage(answer.response);
    if (!next) {
      course.completions = 1;
      return course;
    }
    url = *next;
  }
}

void followChain(std::string_view script) {
  std::vector<UrlResult> answers;
  while (!script.empty()) {
    answers.push_back(takeAnswer(script));
    if (fuzz::linksStopTheProgram(answers.back().response)) return;
  }
  network::scriptedTransport().play(answers);
  const auto course = std::make_shared<Course>();
  const auto released = std::make_shared<test::Latch>();
  auto token = test::opensWhenGone(released);
  HttpSession("http://h/1/", "user", "secret", "en")
      .get("node")
      .onPage(0,
              [course, token](int pages, const RawData&) {
                course->folds = pages + 1;
                return pages + 1;
              })
      .onComplete([course, token](int) { ++course->completions; })
      .onError([course, token](const foundation::Error&) { ++course->errors; });
  token.reset();
  ORIVANTA_REQUIRE(released->wait());
  course->requested = network::scriptedTransport().requested();
  ORIVANTA_REQUIRE(*course == expectedCourse(answers, *foundation::Url::parse("http://h/1/node")));
}

}  // namespace
}  // namespace orivanta

ORIVANTA_FUZZER(PagedChain, orivanta::followChain)
