#include "Source/Guidance/PlaceSearch.hpp"

#include <gtest/gtest.h>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta {
namespace {

std::shared_ptr<Location> place(const std::string& id, const std::string& name,
                                const std::shared_ptr<Category>& category = nullptr,
                                bool isReachable = true) {
  auto location = Location::make(
      *RawData::parse(R"({"id": ")" + id + R"(", "name": ")" + name + R"(", "type": "shop"})"));
  if (isReachable)
    location->nodes.push_back(Node::make(*RawData::parse(R"({"id": "n", "x": 0, "y": 0})")));
  if (category) location->categories.push_back(category);
  return location;
}

std::shared_ptr<Category> categoryNamed(const std::string& name) {
  return Category::make(*RawData::parse(R"({"id": ")" + name + R"(", "name": ")" + name + R"("})"));
}

// "title:ids title:..."
std::string textOf(const std::vector<PlaceGroup>& groups) {
  std::string text;
  for (const PlaceGroup& group : groups) {
    text += (text.empty() ? "" : " ") + group.title + ':';
    for (const auto& found : group.places) text += *found->id;
  }
  return text;
}

TEST(PlaceSearch, PutsNamesBeforeCategoriesBeforeNearMisses) {
  const auto coffee = categoryNamed("Coffee");
  const PlaceSearch index({place("1", "The Toffee Shop"), place("2", "Zum Löwen", coffee),
                           place("3", "Old Coffee"), place("4", "Coffee Counter"),
                           place("5", "Coffee without a door", nullptr, false)});
  const std::pair<const char*, const char*> cases[] = {
      {"Coffee", ":4321"}, {"lowen", ":2"}, {" ", "Coffee:2 :431"}, {"nothing of the kind", ""}};
  for (const auto& [typed, expected] : cases) EXPECT_EQ(textOf(index.find(typed)), expected);
}

TEST(PlaceSearch, BrowsesAllPlacesByCategoryAndNumber) {
  const auto ten = categoryNamed("Exits 10");
  const auto two = categoryNamed("Exits 2");
  const auto padded = categoryNamed("Exits 02");
  const PlaceSearch index({place("1", "Gate 12", ten), place("2", "Gate 7"), place("3", "b", two),
                           place("4", "Gate 9", ten), place("5", "a", two), place("6", "Gate 70"),
                           place("7", "c", padded)});
  EXPECT_EQ(textOf(index.find("")), "Exits 02:7 Exits 2:53 Exits 10:41 :26");
}

TEST(PlaceSearch, EndsWhenItIsCanceled) {
  const foundation::CancellationSource source;
  const PlaceSearch index({place("1", "Gate")}, source.token());
  EXPECT_EQ(textOf(index.find("gate", source.token())), ":1");
  source.cancel();
  EXPECT_EQ(textOf(index.find("gate", source.token())), "");
  EXPECT_EQ(textOf(PlaceSearch({place("1", "Gate")}, source.token()).find("")), "");
}

}  // namespace
}  // namespace orivanta
