#include "Platform/Network/Fetch/Transfers.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "Platform/Network/Fetch/PageFunctions.hpp"

// The page.
static int startedFetch = 0;
static int abortedFetch = 0;
void orivantaStartFetch(int number, const char*, std::size_t, double, double) {
  startedFetch = number;
}
void orivantaAbortFetch(int number) { abortedFetch = number; }
void orivantaLoadNow(int number, const char* texts, std::size_t count) {
  std::copy_n(texts, count, orivantaFetchRoom(number, 1, count));
  orivantaFetchEnded(number, 200);
}

namespace orivanta::network {
namespace {

using namespace std::string_literals;

foundation::Url parsed(const std::string& text) { return *foundation::Url::parse(text); }

// Starts a request and writes a text to a part of its response. Returns the result.
UrlResult receive(const TransferRules& rules, Transfers::Part part, const std::string& text,
                  std::size_t count) {
  UrlResult received;
  Transfers::shared().start({parsed("https://h/a"), {}, rules},
                            [&](auto result) { received = result; });
  if (char* const room = Transfers::shared().room(startedFetch, part, count))
    std::copy(text.begin(), text.end(), room);
  Transfers::shared().end(startedFetch, 203);
  EXPECT_EQ(Transfers::shared().room(startedFetch, part, 1), nullptr) << "ended";
  return received;
}
UrlResult receive(const TransferRules& rules, Transfers::Part part, const std::string& text) {
  return receive(rules, part, text, text.size());
}

TEST(Transfers, ReturnWhatThePageHasReceivedWithinTheRules) {
  using enum Transfers::Part;
  const std::string texts = "http://h/b\0Link\0<c>\0Empty\0\0"s;
  const auto response = receive({}, head, texts)->response;
  EXPECT_EQ(response.url, parsed("http://h/b"));
  EXPECT_EQ(response.statusCode, 203);
  EXPECT_EQ(response.headerFields, (HeaderFields{{"Link", "<c>"}, {"Empty", ""}}));
  EXPECT_EQ(receive({}, body, "\0b"s)->body, "\0b"s);
  EXPECT_EQ(receive({}, problem, "hidden").error(), incompleteAnswer("hidden"));
  EXPECT_TRUE(isInsecureStep(receive(strictRules(), head, texts).error()));
  const TransferRules small{{}, false, std::make_shared<foundation::MemoryBudget>(10)};
  EXPECT_EQ(receive(small, body, "12345")->body, "12345");
  EXPECT_EQ(receive(small, body, "", 6).error().domain, foundation::memoryErrorDomain);
  EXPECT_EQ(receive({}, body, "", Transfers::largestBodyBytes + 1).error().description,
            "the response is larger than 512 MiB");
  EXPECT_EQ(Transfers::shared().load({parsed("http://h/a"), {{"A", "b"}}})->body,
            "http://h/a\0A\0b\0"s);
}

TEST(Transfers, CancelingEndsTheRequestAndReleasesItsCompletion) {
  const foundation::CancellationSource source;
  const auto token = std::make_shared<int>();
  Transfers::shared().start({parsed("http://h/a"), {}, {}, source.token()},
                            [token](const auto&) { FAIL() << "canceled"; });
  source.cancel();
  EXPECT_EQ(abortedFetch, startedFetch);
  EXPECT_EQ(token.use_count(), 1);
  Transfers::shared().end(startedFetch, 200);
}

}  // namespace
}  // namespace orivanta::network
