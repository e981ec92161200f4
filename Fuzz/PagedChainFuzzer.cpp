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
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Fuzz/Fuzzer.hpp"
#include "Fuzz/StoppingLinks.hpp"
#include "Platform/Network/UrlTransport.hpp"
#include "Source/HttpSession.hpp"
#include "Tests/Support/Awaited.hpp"

namespace orivanta {
namespace {

using network::UrlAnswer;
using network::UrlResult;

// Responds to every request immediately.
class ScriptedTransport : public network::UrlTransport {
 public:
  // A missing response means a broken connection.
  explicit ScriptedTransport(std::vector<std::optional<UrlAnswer>> answers)
      : answers_(std::move(answers)) {}

  std::vector<std::string> requested() {
    const std::lock_guard lock(mutex_);
    return requested_;
  }

  void start(network::UrlRequest request, Completion completed) override {
    completed(answer(request.url));
  }

 private:
  UrlResult answer(const foundation::Url& url) {
    const std::lock_guard lock(mutex_);
    requested_.push_back(url.absoluteString());
    const std::size_t number = requested_.size();
    if (number > answers_.size() || !answers_[number - 1])
      return foundation::failure("lost", 1, "");
    UrlAnswer answer = *answers_[number - 1];
    if (!answer.response.headerField("At")) answer.response.url = url;
    return answer;
  }

  const std::vector<std::optional<UrlAnswer>> answers_;
  std::mutex mutex_;
  std::vector<std::string> requested_;
};

struct Course {
  std::vector<std::string> requested;
  int folds = 0;
  int completions = 0;
  int errors = 0;

  friend bool operator==(const Course&, const Course&) = default;
};

std::optional<UrlAnswer> takeAnswer(std::string_view& script) {
  UrlAnswer answer;
  std::string_view text = fuzz::takeUpTo("\n%%\n", script);
  const std::string_view status = fuzz::takeUpTo("\n", text);
  if (status == "lost") return std::nullopt;
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
Course expectedCourse(const std::vector<std::optional<UrlAnswer>>& answers, foundation::Url url) {
  Course course;
  for (;;) {
    course.requested.push_back(url.absoluteString());
    const std::size_t number = course.requested.size();
    const bool isAnswered = number <= answers.size() && answers[number - 1];
    if (!isAnswered || !RawData::parse(answers[number - 1]->body)) {
      course.errors = 1;
      return course;
    }
    UrlAnswer answer = *answers[number - 1];
    if (!answer.response.headerField("At")) answer.response.url = url;
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
  std::vector<std::optional<UrlAnswer>> answers;
  while (!script.empty()) {
    answers.push_back(takeAnswer(script));
    if (answers.back() && fuzz::linksStopTheProgram(answers.back()->response)) return;
  }
  const auto transport = std::make_shared<ScriptedTransport>(answers);
  const auto course = std::make_shared<Course>();
  const auto released = std::make_shared<test::Latch>();
  auto token = test::opensWhenGone(released);
  HttpSession("http://h/1/", "user", "secret", "en", transport)
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
  course->requested = transport->requested();
  ORIVANTA_REQUIRE(*course == expectedCourse(answers, *foundation::Url::parse("http://h/1/node")));
}

}  // namespace
}  // namespace orivanta

ORIVANTA_FUZZER(PagedChain, orivanta::followChain)
