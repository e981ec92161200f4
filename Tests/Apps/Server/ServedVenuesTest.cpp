// Whole venues through the server, against their files.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <boost/json/array.hpp>
#include <boost/json/serialize.hpp>

#include "Apps/Server/Router.hpp"
#include "Source/HttpLink.hpp"
#include "Source/JsonDocument.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::server {
namespace {

namespace json = boost::json;

constexpr std::string_view host = "http://here";

// Follows the links of a collection from page to page and puts its records together.
json::array fetched(Router& router, std::string target) {
  json::array records;
  for (;;) {
    const Response response = router.respond({.target = target, .host = "here"});
    EXPECT_EQ(response.status, 200U) << target;
    const auto page = response.status == 200 ? parseJsonDocument(*response.text) : nullptr;
    if (!page) return records;
    EXPECT_LE(page->get_array().size(), 7U);
    for (const json::value& record : page->get_array()) records.push_back(record);
    const Link next = parseLinkHeader(response.header("Link")).front();
    if (next.relationType() != "next") return records;
    target = next.uri.substr(host.size());
  }
}

// Makes the texts below the package's files relative again, wherever they stand.
void makeRelative(json::value& value, const std::string& filesUrl) {
  if (value.is_string() && value.get_string().starts_with(filesUrl)) {
    const std::string path(value.get_string().subview(filesUrl.size()));
    value = percentDecoded(path).value();
  } else if (value.is_array()) {
    for (json::value& element : value.get_array()) makeRelative(element, filesUrl);
  } else if (value.is_object()) {
    for (auto& member : value.get_object()) makeRelative(member.value(), filesUrl);
  }
}

TEST(ServedVenues, PagesAddUpToTheFiles) {
  const auto folder = test::venuesFolder();
  if (!folder) GTEST_SKIP() << "no venues to serve";
  Router router(readPackages({*folder}), {"http://unused", 7, {}});
  std::size_t compared = 0;
  for (const std::string& name : test::venueNames()) {
    const auto venue = parseJsonDocument(test::contentsOf(*folder / name / "venue.json"));
    const std::string slug(venue->at("slug").get_string());
    for (const std::string_view collection : collectionNames) {
      const auto file = *folder / name / (std::string(collection) + ".json");
      const auto expected = parseJsonDocument(test::contentsOf(file));
      json::value served =
          fetched(router, "/1/" + std::string(collection) + "?venue=" + percentEncoded(slug));
      makeRelative(served, fmt::format("{}/1/files/{}/", host, percentEncoded(slug)));
      // As text, which also tells -0.0 from 0.0 and an integer from a double.
      EXPECT_TRUE(json::serialize(served) == json::serialize(*expected)) << file;
      compared += served.get_array().size();
    }
  }
  EXPECT_GT(compared, 5'000U);
}

TEST(ServedVenues, EveryFileThatARecordNamesIsServed) {
  const auto folder = test::venuesFolder();
  if (!folder) GTEST_SKIP() << "no venues to serve";
  Router router(readPackages({*folder}), {"http://unused", 1000, {}});
  for (const std::string& name : test::venueNames()) {
    if (name.ends_with("hostile")) continue;  // names files that do not exist
    for (const json::value& map : fetched(router, "/1/map?per-page=7&venue=" + name)) {
      for (const char* key : {"obj", "mtl"}) {
        const std::string url(map.at("scene").at(key).get_string());
        const Response response = router.respond({.target = url.substr(host.size())});
        ASSERT_EQ(response.status, 200U) << url;
        std::string bytes(response.contentLength(), '\0');
        EXPECT_EQ(response.file->read(0, bytes.data(), bytes.size()), bytes.size());
        EXPECT_EQ(bytes,
                  test::contentsOf(*folder / name / "maps" / url.substr(url.rfind('/') + 1)));
      }
    }
  }
}

}  // namespace
}  // namespace orivanta::server
