// Reads the input as a batch of routes: each nonblank line has one line of JSON with its identifier
// as the result.
#include <boost/json/value.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Command/Batch.hpp"
#include "Fuzz/Fuzzer.hpp"
#include "Source/RawData.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

// Whether the result has the identifier of the request, or null if the request has none.
bool echoesIdentifier(const std::string& request, const RawData& answer) {
  const auto echo = answer["id"].data();
  const auto parsed = RawData::parse(request);
  const auto identifier = parsed ? (*parsed)["id"].data() : nullptr;
  return echo && (identifier ? *echo == *identifier : echo->is_null());
}

void checkBatch(std::string_view input) {
  static const auto venue = test::TwoFloorVenue().load();
  static const BatchRouter router(*venue);
  std::vector<std::string> answers;
  std::istringstream requests{std::string(input)};
  answerLines(requests, router, [&](std::string_view answer) { answers.emplace_back(answer); });
  std::size_t answered = 0;
  std::istringstream lines{std::string(input)};
  for (std::string line; std::getline(lines, line);) {
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    ORIVANTA_REQUIRE(answered < answers.size());
    const std::string& answer = answers[answered++];
    ORIVANTA_REQUIRE(answer.find('\n') == answer.size() - 1);
    const auto parsed = RawData::parse(answer);
    ORIVANTA_REQUIRE(parsed && echoesIdentifier(line, *parsed));
    ORIVANTA_REQUIRE((*parsed)["error"].data() || (*parsed)["path"].data() ||
                     (*parsed)["problem"].data());
  }
  ORIVANTA_REQUIRE(answered == answers.size());
}

}  // namespace
}  // namespace orivanta::command

ORIVANTA_FUZZER(Batch, orivanta::command::checkBatch)
