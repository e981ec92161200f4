#include "Apps/Server/RepresentationCache.hpp"

#include <gtest/gtest.h>

namespace orivanta::server {
namespace {

// Says whether the key had to be made anew.
bool isMade(RepresentationCache& cache, const std::string& key, std::size_t bytes = 10) {
  bool made = false;
  const auto representation = cache.get(key, [&] {
    made = true;
    return Representation{std::string(bytes, 'x'), {}};
  });
  EXPECT_EQ(representation->body.size(), bytes);
  return made;
}

TEST(RepresentationCache, KeepsWhatWasUsedLastWithinItsLimit) {
  RepresentationCache cache(33);  // three bodies of ten bytes with keys of one
  for (const char* key : {"a", "b", "c"}) EXPECT_TRUE(isMade(cache, key));
  for (const char* key : {"b", "c", "a"}) EXPECT_FALSE(isMade(cache, key));
  EXPECT_TRUE(isMade(cache, "d"));  // drops "b"
  EXPECT_FALSE(isMade(cache, "c"));
  EXPECT_FALSE(isMade(cache, "a"));
  EXPECT_TRUE(isMade(cache, "b"));  // drops "d"
  EXPECT_TRUE(isMade(cache, "d"));
}

TEST(RepresentationCache, WhatIsTooLargeIsNotKept) {
  RepresentationCache cache(33);
  EXPECT_TRUE(isMade(cache, "a"));
  EXPECT_TRUE(isMade(cache, "large", 40));
  EXPECT_TRUE(isMade(cache, "large", 40));
  EXPECT_FALSE(isMade(cache, "a"));
}

}  // namespace
}  // namespace orivanta::server
