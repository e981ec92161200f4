#include "Apps/Server/GuideService.hpp"

#include <gmock/gmock.h>

#include <future>

#include "Tests/Support/TwoFloorPackage.hpp"

namespace orivanta::server {
namespace {

using testing::HasSubstr;

class GuideServiceTest : public testing::Test {
 protected:
  GuideServiceTest() {
    test::TwoFloorVenue venue;
    const std::string name = R"("name": "Book Shop")";
    venue.locations.replace(venue.locations.find(name), name.size(),
                            name + R"(, "names": {"de": "Buchladen", "ja": "本屋"})");
    test::writePackage(root_, "p", venue);
    package_ = read();
  }

  std::shared_ptr<const VenuePackage> read() const {
    return std::make_shared<const VenuePackage>(readPackage(root_.path() / "p"));
  }

  GuideService::Job job(std::vector<std::string> languages = {},
                        const std::string& query = "from=l1&to=l2") const {
    return {package_, {}, *parseTarget("/1/route?" + query), std::move(languages)};
  }

  static Response answer(GuideService& service, GuideService::Job job) {
    std::promise<Response> promise;
    service.start(std::move(job),
                  [&](Response response) { promise.set_value(std::move(response)); });
    return promise.get_future().get();
  }

  const test::TemporaryFolder root_;
  std::shared_ptr<const VenuePackage> package_;
};

TEST_F(GuideServiceTest, RefusesWhatItCannotComputeInTime) {
  GuideService late({.deadline = std::chrono::milliseconds(0)});
  const Response response = answer(late, job());
  EXPECT_EQ(response.status, 503U);
  EXPECT_THAT(*response.text, HasSubstr("in time"));
  EXPECT_EQ(response.header("Retry-After"), "1");
}

TEST_F(GuideServiceTest, RefusesMoreThanItsQueueHoldsAndDropsTheQueueWhenItStops) {
  GuideService service({.threads = 0, .waiting = 64});
  int answers = 0;
  const auto count = [&](const Response& response) {
    EXPECT_EQ(response.status, 503U);
    ++answers;
  };
  for (int i = 0; i < 64; ++i) service.start(job(), count);
  EXPECT_EQ(answers, 0);
  service.start(job(), count);
  EXPECT_EQ(answers, 1);
  service.stop();
  EXPECT_EQ(answers, 1);
  service.start(job(), count);
  EXPECT_EQ(answers, 2);
}

TEST_F(GuideServiceTest, AnswersManyClientsAndKeepsFewVenues) {
  GuideService service({.threads = 4, .waiting = 1000, .venues = 2});
  const std::pair<std::vector<std::string>, std::string> cases[] = {{{}, "Book Shop"},
                                                                    {{"de"}, "Buchladen"},
                                                                    {{"ja", "de"}, "本屋"},
                                                                    {{"fr", "de"}, "Buchladen"},
                                                                    {{"x-1"}, "Book Shop"}};
  std::vector<std::pair<std::future<Response>, std::string>> answers;
  for (int round = 0; round < 20; ++round) {
    if (round == 10) package_ = read();
    for (const auto& [languages, name] : cases) {
      const auto promise = std::make_shared<std::promise<Response>>();
      answers.emplace_back(promise->get_future(), name);
      service.start(job(languages),
                    [promise](Response response) { promise->set_value(std::move(response)); });
    }
  }
  for (auto& [future, name] : answers) {
    const Response response = future.get();
    EXPECT_EQ(response.status, 200U);
    EXPECT_THAT(*response.text, HasSubstr(name));
  }
}

TEST_F(GuideServiceTest, SaysThatABrokenPackageHasNoRoutes) {
  root_.write("p/venue.json", R"({"id": "v", "slug": "small"})");
  package_ = read();
  GuideService service;
  for (int round = 0; round < 2; ++round) {
    const Response response = answer(service, job());
    EXPECT_EQ(response.status, 404U);
    EXPECT_THAT(*response.text,
                HasSubstr("\"The records of the venue cannot be used for routes.\""));
  }
}

}  // namespace
}  // namespace orivanta::server
