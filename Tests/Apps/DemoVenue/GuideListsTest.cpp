// The instructions of routes through the demo venue, in every language, compared with kept texts.
// ORIVANTA_REFRESH_GOLDEN=1 replaces the texts.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "Apps/DemoVenue/Folder.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Server/PackageVenue.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Narrator.hpp"

namespace orivanta::demo {
namespace {

using planning::PlanQuery;

std::vector<PlanQuery> routes() {
  std::vector<PlanQuery> queries;
  const auto add = [&](const char* from, const char* to, const char* profile = "fastest") {
    PlanQuery query;
    query.from = {from};
    query.to = {to};
    query.profile = profile;
    queries.push_back(query);
    return &queries.back();
  };
  add("paper-kestrel", "popcorn-nebula");
  add("paper-kestrel", "popcorn-nebula", "step-free");
  add("lantern-market", "sundial-bar");
  add("lantern-market", "sundial-bar", "step-free");
  add("quiet-room", "toilets-l2", "no-escalator");
  add("brass-heron", "cash-g");
  add("ecliptic-1", "night-baker", "prefer-lift");
  add("otterly-shod", "tamarisk-row");
  add("quiet-color", "north-star-outfitters");
  add("cash-g", "small-observatory")->via = {"wandering-button"};
  add("undertow-gym", "star-deck", "step-free")->closed = {"lift-north"};
  PlanQuery* nearest = add("midnight-vinyl", "");
  nearest->to.clear();
  nearest->nearest = "toilets";
  return queries;
}

std::string lists(const std::string& language) {
  const auto packages = server::readPackages({demoVenueFolder().value()});
  const auto venue = server::loadPackage(
      std::make_shared<const server::VenuePackage>(packages.front()), {language});
  const auto guide = guidance::Guide::make(*venue);
  const guidance::Narrator narrator(language);
  std::string text;
  for (const PlanQuery& query : routes()) {
    const auto plan = guide->plan(planning::requestOf(*venue, query));
    EXPECT_FALSE(plan.problem) << query.from.front();
    if (plan.problem) continue;
    const auto& itinerary = plan.itineraries.front();
    text += fmt::format("{} - {} ({})\n", query.from.front(),
                        query.nearest ? *query.nearest : query.to.front(), query.profile);
    for (const std::string& step : narrator.texts(itinerary, guide->steps(itinerary)))
      text += "  " + step + '\n';
    text += "  " + narrator.summary(itinerary) + "\n\n";
  }
  return text;
}

TEST(GuideLists, AreAsKept) {
  const char* refresh = std::getenv("ORIVANTA_REFRESH_GOLDEN");
  for (const char* language : {"ar", "de", "en", "fr", "ja"}) {
    const std::string file = fmt::format("{}/guide.{}.txt", ORIVANTA_GOLDEN, language);
    const std::string text = lists(language);
    if (refresh != nullptr && std::string(refresh) == "1")
      std::ofstream(file, std::ios::binary) << text;
    std::ifstream kept(file, std::ios::binary);
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(kept), {})) << file;
  }
}

}  // namespace
}  // namespace orivanta::demo
