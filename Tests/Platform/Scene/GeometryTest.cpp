#include "Platform/Scene/Geometry.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "Tests/Support/Vectors.hpp"

namespace orivanta::scene {
namespace {

using graphics::Vector3;
using test::bytesOf;

constexpr std::size_t huge = std::numeric_limits<std::size_t>::max();

TEST(Geometry, ReadsVectorsOfAnyStride) {
  const auto data = bytesOf<float>({-1, 1, 2, 3, -1, 4, 5, 6});
  const GeometrySource source{.data = data, .vectorCount = 2, .dataOffset = 4, .dataStride = 16};
  EXPECT_EQ(source.vector(0), Vector3(1, 2, 3));
  EXPECT_EQ(source.vector(1), Vector3(4, 5, 6));
  const GeometrySource pairs{
      .data = data, .vectorCount = 2, .componentsPerVector = 2, .dataOffset = 4, .dataStride = 4};
  EXPECT_EQ(pairs.vector(1), Vector3(2, 3, 0));
}

TEST(Geometry, ReadsIndicesOfEachSize) {
  const auto data = bytesOf<std::uint8_t>({1, 2, 3, 4, 5, 6, 7, 8, 9});
  const struct {
    std::size_t bytesPerIndex, count;
    std::uint64_t first, last;
  } cases[] = {{1, 9, 0x01, 0x09},
               {2, 4, 0x0201, 0x0807},
               {4, 2, 0x04030201, 0x08070605},
               {8, 1, 0x0807060504030201, 0x0807060504030201}};
  for (const auto& [bytesPerIndex, count, first, last] : cases) {
    const GeometryElement element{data, bytesPerIndex};
    ASSERT_EQ(element.indexCount(), count);
    EXPECT_EQ(element.index(0), first);
    EXPECT_EQ(element.index(count - 1), last);
  }
  EXPECT_EQ(GeometryElement{}.indexCount(), 0U);
}

TEST(Geometry, ItsBoxHoldsOnlyVerticesThatAreReferredTo) {
  const GeometrySource source{.data = bytesOf<float>({0, 0, 0, 99, 99, 99, 2, -4, 6}),
                              .vectorCount = 3};
  const auto geometry = Geometry::make({source}, {{bytesOf<std::uint8_t>({0, 2, 0}), 1}});
  EXPECT_EQ(geometry->boundingBox(), (graphics::Box{{0, -4, 0}, {2, 0, 6}}));
  EXPECT_TRUE(Geometry::make({source}, {})->boundingBox().isEmpty());
  EXPECT_EQ(geometry->source(Semantic::normal), nullptr);
}

TEST(GeometryDeathTest, NothingIsReadOutOfBounds) {
  const auto data = bytesOf<float>({1, 2, 3, 4, 5});
  const struct {
    GeometrySource source;
    std::size_t index;
    const char* message;
  } cases[] = {
      {{.data = data, .vectorCount = 1}, 1, "index out of range"},
      {{.data = data, .vectorCount = 2}, 1, "too short"},
      {{.data = data, .vectorCount = 1, .dataOffset = 12}, 0, "too short"},
      {{.data = data, .vectorCount = 1, .dataOffset = huge}, 0, "too short"},
      {{.data = data, .vectorCount = huge, .dataStride = huge / 4 + 2}, 4, "too short"},
      {{.data = nullptr, .vectorCount = 1}, 0, "too short"},
      {{.data = data, .vectorCount = 1, .bytesPerComponent = 8}, 0, "not floats of 4 bytes"},
  };
  for (const auto& [source, index, message] : cases) EXPECT_DEATH(source.vector(index), message);
  EXPECT_DEATH((GeometryElement{data, 4}.index(5)), "out of range");
  EXPECT_DEATH((GeometryElement{data, 4}.index(huge / 4 + 1)), "out of range");
  for (const std::size_t size : {0U, 3U, 5U, 7U, 9U})
    EXPECT_DEATH((GeometryElement{data, size}.indexCount()), "1, 2, 4 or 8 bytes");
  const GeometrySource endless{.data = data, .vectorCount = huge, .dataStride = 0};
  const auto indices = bytesOf<std::uint64_t>({0, 0, std::uint64_t{1} << 32});
  EXPECT_DEATH(Geometry::make({endless}, {{indices, 8}}), "does not fit in 32 bits");
}

}  // namespace
}  // namespace orivanta::scene
