#include "Source/RawData.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

TEST(RawData, ReadersAcceptTheirOwnKindAndNothingElse) {
  const auto data = RawData::parse(R"({"seven": 7, "yes": true, "twelve": "12", "null": null})");
  ASSERT_TRUE(data);
  EXPECT_EQ((*data)["seven"].double_(), 7.0);
}

}  // namespace
}  // namespace orivanta
