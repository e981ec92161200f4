#include "Apps/Viewer/LatestRequest.hpp"

#include <gtest/gtest.h>

#include "Apps/Viewer/SearchWorker.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta::viewer {
namespace {

std::shared_ptr<Location> place(const std::string& name) {
  auto location = Location::make(
      *RawData::parse(R"({"id": ")" + name + R"(", "name": ")" + name + R"(", "type": "shop"})"));
  location->nodes.push_back(Node::make(*RawData::parse(R"({"id": "n", "x": 0, "y": 0})")));
  return location;
}

using Search = LatestRequest<SearchWorker>;

void untilFound(const Search& search) {
  while (search.isBusy()) {
    foundation::mainQueue::wait(10);
    foundation::mainQueue::drain();
  }
}

TEST(LatestRequest, AnswersTheLastSearchAndNobodyWhoHasLeft) {
  std::vector<std::string> answers;
  const auto tell = [&](const std::vector<PlaceGroup>& groups) {
    for (const PlaceGroup& group : groups)
      for (const auto& found : group.places) answers.push_back(*found->id);
  };
  Search search(SearchWorker({place("Bakery"), place("Books")}), tell);
  search.start("boo");
  search.start("bak");
  EXPECT_TRUE(search.isBusy());
  untilFound(search);
  EXPECT_EQ(answers, std::vector<std::string>{"Bakery"});
  {
    Search leaving(SearchWorker({place("Bank")}), tell);
    leaving.start("bank");
  }
  search.start("b");
  untilFound(search);
  EXPECT_EQ(answers, (std::vector<std::string>{"Bakery", "Bakery", "Books"}));
}

}  // namespace
}  // namespace orivanta::viewer
