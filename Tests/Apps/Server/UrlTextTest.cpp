#include "Apps/Server/UrlText.hpp"

#include <gtest/gtest.h>

#include "Platform/Foundation/Url.hpp"

namespace orivanta::server {
namespace {

TEST(UrlText, ReferencesBecomePathsInThePackage) {
  struct Row {
    std::string_view reference;
    std::optional<std::string> path;
  };
  const Row rows[] = {
      {"images/a.png", "images/a.png"},
      {"a b/ü\"\\<.png", "a%20b/%C3%BC%22%5C%3C.png"},
      {"already%20encoded/100%.png", "already%20encoded/100%25.png"},
      {"%", "%25"},
      {"%4", "%254"},
      {"./a//b/../c.png", "a/c.png"},
      {"/images/a.png", "images/a.png"},
      {"a.png?size=2 x#top#2", "a.png?size=2%20x#top%232"},
      {"a,b;c.png", "a,b;c.png"},
      {"1:a.png", "1:a.png"},  // not a scheme: schemes begin with a letter
      {"", std::nullopt},
      {".", std::nullopt},
      {"?query", std::nullopt},
      {"../outside.png", std::nullopt},
      {"a/../../outside.png", std::nullopt},
      {"//cdn.example/a.png", std::nullopt},
      {"http://cdn.example/a b.png", std::nullopt},
      {"data:image/png;base64,AA==", std::nullopt},
  };
  for (const Row& row : rows) {
    const auto path = pathInPackage(row.reference);
    EXPECT_EQ(path, row.path) << row.reference;
    EXPECT_TRUE(foundation::Url::parse("http://h/" + path.value_or(""))) << row.reference;
  }
}

TEST(UrlText, HostsAreNamesOrAddresses) {
  for (const char* host : {"localhost", "a-b.example:8080", "127.0.0.1:1", "[::1]", "[::1]:65535"})
    EXPECT_TRUE(isHost(host)) << host;
  for (const char* host : {"", ":80", "a:", "a:b", "a:123456", "a b", "a/b", "a@b", "a,b", "a\"b",
                           "[::1", "[]", "[::1]x"})
    EXPECT_FALSE(isHost(host)) << host;
  EXPECT_FALSE(isHost(std::string(300, 'a')));
}

}  // namespace
}  // namespace orivanta::server
