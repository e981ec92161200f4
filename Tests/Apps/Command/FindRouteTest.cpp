// Routes of real venues through the whole program, server and network included.
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

// The known queries of a venue as a batch, and the answers to them.
struct KnownRoutes {
  std::string requests;
  std::string answers;

  KnownRoutes(const std::filesystem::path& package, bool accessible) {
    const auto known = RawData::parse(test::contentsOf(package / "golden.json"));
    for (const RawData& query : (*known)["queries"].arrayValue()) {
      if (query["accessible"].bool_() != accessible) continue;
      requests += fmt::format("{{\"id\":{},\"from\":{},\"to\":{}}}\n", count_, list(query["start"]),
                              list(query["destination"]));
      const auto weight = query["weight"].string();
      const double number = weight ? std::strtod(weight->c_str(), nullptr) : 0.0;
      answers +=
          fmt::format("{{\"id\":{},\"path\":{},\"weight\":{}}}\n", count_++,
                      weight ? list(query["path"]) : "null", weight ? jsonNumber(number) : "null");
    }
  }

 private:
  int count_ = 0;
};

TEST(FindRoute, BatchesGiveTheKnownRoutesOfRealVenues) {
  const auto folder = test::venuesFolder();
  if (!folder) GTEST_SKIP() << "no venues beside the project";
  server::ServerOptions options;
  options.folders = {*folder};
  const server::VenueServer server(options);
  for (const std::string& name : test::venueNames())
    for (const bool accessible : {false, true}) {
      // The known accessible routes of this one are for connectors in another order.
      if (accessible && name == "tie-grid") continue;
      const KnownRoutes routes(*folder / name, accessible);
      std::vector<std::string> arguments = {"route", name, "--batch", "-"};
      if (accessible) arguments.emplace_back("--accessible");
      test::Program program(arguments, {"ORIVANTA_ENDPOINT=" + server.root()});
      // Sent and read in turn, so that neither pipe fills up.
      std::string_view requests = routes.requests;
      std::string answers;
      while (!requests.empty()) {
        const std::size_t end = requests.find('\n') + 1;
        program.send(requests.substr(0, end));
        requests.remove_prefix(end);
        answers += program.readLine();
      }
      EXPECT_EQ(program.finish().exitCode, 0);
      EXPECT_FALSE(answers.empty());
      EXPECT_EQ(answers, routes.answers) << name;
    }
}

}  // namespace
}  // namespace orivanta::command
