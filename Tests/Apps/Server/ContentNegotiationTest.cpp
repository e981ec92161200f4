#include "Apps/Server/ContentNegotiation.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

namespace orivanta::server {
namespace {

TEST(ContentNegotiation, GzipIsUsedWhenAcceptedAndNotLessWelcome) {
  for (const char* header : {"gzip", "GZIP", "deflate, gzip;q=0.5, br", "*", "x-gzip",
                             "gzip ; q=0.001", "identity;q=0.5, gzip", "identity, gzip"})
    EXPECT_TRUE(acceptsGzip(header)) << header;
  for (const char* header : {"", "deflate", "gzip;q=0", "gzip;q=0.000, *", "*;q=0", "gzipped",
                             "identity, gzip;q=0.5", "gzip;q=2", "gzip;q=x", "gzip;q=", ",;,"})
    EXPECT_FALSE(acceptsGzip(header)) << header;
}

TEST(ContentNegotiation, LanguagesAreLookedUpFromTheWantedToTheGeneral) {
  struct Row {
    const char* header;
    const char* tags;
  };
  const Row rows[] = {
      {"", ""},
      {"ja-JP", "ja-jp ja"},
      {"en;q=0.5, ja-JP, de;q=0.7", "ja-jp ja de en"},
      {"de, fr", "de fr"},
      {"zh-Hant-CN-x-private1-private2",
       "zh-hant-cn-x-private1-private2 zh-hant-cn-x-private1 zh-hant-cn zh-hant zh"},
      {"en-GB, en-US", "en-gb en en-us"},
      {"*, en", "en"},
      {"en;q=0, de", "de"},
      {"de;q=1.5, en", "en"},
      {"-, en--, ;q=1", "- en-- en- en"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(fmt::format("{}", fmt::join(languagesToLookUp(row.header), " ")), row.tags)
        << row.header;
}

TEST(ContentNegotiation, LooksUpNoMoreLanguagesThanAnyoneSpeaks) {
  std::vector<std::string> ranges{std::string(36, 'a')};
  for (int i = 0; i < 4000; ++i) ranges.push_back(fmt::format("l{}", i));
  const auto tags = languagesToLookUp(fmt::format("{}", fmt::join(ranges, ",")));
  EXPECT_EQ(tags.size(), 64U);
  EXPECT_EQ(tags.front(), "l0");
}

TEST(ContentNegotiation, EntityTagsAreComparedWeakly) {
  const std::string tag = entityTagOf("body");
  EXPECT_EQ(tag, R"("cd4de79bc6c93295-4")");
  EXPECT_NE(tag, entityTagOf("bodx"));
  for (const std::string& header : {tag, "W/" + tag, "\"other\" ,\t" + tag, std::string("*")})
    EXPECT_TRUE(namesEntityTag(header, tag)) << header;
  for (const std::string& header : {std::string(), std::string("\"other\""), tag.substr(1)})
    EXPECT_FALSE(namesEntityTag(header, tag)) << header;
}

}  // namespace
}  // namespace orivanta::server
