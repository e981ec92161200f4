#include "Apps/Server/RepresentationCache.hpp"

#include <gtest/gtest.h>

#include <future>
#include <stdexcept>

namespace orivanta::server {
namespace {

std::shared_ptr<const Representation> got(RepresentationCache& cache, const std::string& key,
                                          bool& made, std::size_t bytes = 10) {
  made = false;
  return cache.get(key, [&] {
    made = true;
    return Representation{std::string(bytes, 'x'), {}};
  });
}

// Returns whether the representation had to be made.
bool isMade(RepresentationCache& cache, const std::string& key, std::size_t bytes = 10) {
  bool made = false;
  EXPECT_EQ(got(cache, key, made, bytes)->body.size(), bytes);
  return made;
}

TEST(RepresentationCache, KeepsWhatWasUsedLastWithinItsLimit) {
  RepresentationCache cache(33);  // three bodies of ten bytes with keys of one
  for (const char* key : {"a", "b", "c"}) EXPECT_TRUE(isMade(cache, key));
  for (const char* key : {"b", "c", "a"}) EXPECT_FALSE(isMade(cache, key));
  EXPECT_TRUE(isMade(cache, "d"));  // removes "b"
  EXPECT_FALSE(isMade(cache, "c"));
  EXPECT_FALSE(isMade(cache, "a"));
  EXPECT_TRUE(isMade(cache, "b"));  // removes "d"
  EXPECT_TRUE(isMade(cache, "d"));
}

TEST(RepresentationCache, WhatIsInUseIsSharedBeyondTheLimitUpToAnother) {
  RepresentationCache cache(33, 60);
  bool made = false;
  auto large = got(cache, "large", made, 40);
  auto small = got(cache, "a", made, 30);
  EXPECT_EQ(got(cache, "large", made, 40), large);
  EXPECT_FALSE(made);
  EXPECT_EQ(got(cache, "b", made), nullptr);
  EXPECT_FALSE(made);
  large.reset();
  EXPECT_TRUE(isMade(cache, "b"));
  EXPECT_FALSE(isMade(cache, "a", 30));
}

TEST(RepresentationCache, OneThreadMakesWhatSeveralAskFor) {
  RepresentationCache cache(100);
  std::promise<void> begun;
  std::promise<void> go;
  const auto failing = [&]() -> Representation {
    begun.set_value();
    go.get_future().wait();
    throw std::runtime_error("failed");
  };
  auto first = std::async(std::launch::async, [&] { return cache.get("a", failing); });
  begun.get_future().wait();
  auto second = std::async(std::launch::async, [&] { return isMade(cache, "a"); });
  auto third = std::async(std::launch::async, [&] { return isMade(cache, "a"); });
  EXPECT_TRUE(isMade(cache, "b"));  // does not wait for "a"
  EXPECT_EQ(cache.getWithoutWaiting("a", [] { return Representation{}; }), nullptr);
  go.set_value();
  EXPECT_THROW(first.get(), std::runtime_error);
  EXPECT_NE(second.get(), third.get());  // made by one thread after the failure
}

}  // namespace
}  // namespace orivanta::server
