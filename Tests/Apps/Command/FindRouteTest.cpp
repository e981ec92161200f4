// Finds routes of real venues with the whole program, including the server and the network.
#include "Apps/Command/FindRoute.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "Apps/Command/Json.hpp"
#include "Apps/Server/VenueServer.hpp"
#include "Source/RawData.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::command {
namespace {

std::string list(const RawData& ids) {
  std::string text = "[";
  for (const RawData& id : ids.arrayValue())
    text += (text == "[" ? "" : ",") + jsonString(*id.string());
  return text + "]";
}

TEST(FindRoute, BatchesGiveTheKnownRoutesOfRealVenues) {
  const auto folder = test::venuesFolder();
  if (!folder) GTEST_SKIP() << "the real venues are not available";
  server::ServerOptions options;
  options.folders = {*folder};
  const server::VenueServer server(options);
  for (const std::string& name : test::venueNames())
    for (const bool accessible : {false, true}) {
      // The expected accessible routes of this venue assume another order of the connectors.
      if (accessible && name == "tie-grid") continue;
      std::vector<std::string> arguments = {"route", name, "--batch", "-"};
      if (accessible) arguments.emplace_back("--accessible");
      test::Program program(arguments, {"ORIVANTA_ENDPOINT=" + server.root()});
      int count = 0;
      const auto known = RawData::parse(test::contentsOf(*folder / name / "golden.json"));
      for (const RawData& query : (*known)["queries"].arrayValue()) {
        if (query["accessible"].bool_() != accessible) continue;
        program.send(fmt::format("{{\"id\":{},\"from\":{},\"to\":{}}}\n", ++count,
                                 list(query["start"]), list(query["destination"])));
        const auto weight = query["weight"].string();
        ASSERT_EQ(program.readLine(),
                  fmt::format("{{\"id\":{},\"path\":{},\"weight\":{}}}\n", count,
                              weight ? list(query["path"]) : "null",
                              weight ? jsonNumber(std::strtod(weight->c_str(), nullptr)) : "null"))
            << name;
      }
      EXPECT_GT(count, 0) << name;
      EXPECT_EQ(program.finish().exitCode, 0);
    }
}

}  // namespace
}  // namespace orivanta::command
