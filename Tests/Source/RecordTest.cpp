// Tests for building the seven kinds of records: required members and the values of all others.
#include "Source/Record.hpp"

#include <gtest/gtest.h>

#include "Source/Category.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {
namespace {

template <class Record>
std::shared_ptr<Record> recordOf(const std::string& json) {
  return Record::make(RawData::parse("[" + json + "]")->arrayValue().front());
}

template <class Record>
void expectNothingFrom(std::initializer_list<const char*> refused) {
  for (const char* json : refused) EXPECT_FALSE(recordOf<Record>(json)) << json;
}

TEST(Record, NeedsItsForcedFields) {
  const auto wrongKinds = {"null", "7", "\"text\"", "[]", "{}", R"({"id": 7, "name": "n"})"};
  expectNothingFrom<Venue>(wrongKinds);
  expectNothingFrom<Map>(wrongKinds);
  expectNothingFrom<Category>(wrongKinds);
  expectNothingFrom<Location>(wrongKinds);
  expectNothingFrom<Polygon>(wrongKinds);
  expectNothingFrom<Node>(wrongKinds);
  expectNothingFrom<Vortex>(wrongKinds);
  expectNothingFrom<Venue>({R"({"id": "v", "name": "n"})", R"({"id": "v", "slug": "s"})",
                            R"({"id": "v", "slug": null, "name": "n"})"});
  expectNothingFrom<Category>({R"({"id": "c"})", R"({"id": "c", "name": null})"});
  expectNothingFrom<Location>({R"({"id": "l", "name": "n"})", R"({"id": "l", "type": "t"})"});
  expectNothingFrom<Vortex>({R"({"id": "l", "name": "n"})", R"({"id": "l", "type": "t"})"});
  expectNothingFrom<Node>({R"({"id": "n", "x": 1})", R"({"id": "n", "y": 1})",
                           R"({"id": "n", "x": "1", "y": 1})",
                           R"({"id": "n", "x": 1, "y": null})"});
}

TEST(Record, TheRestIsOptional) {
  const auto venue = recordOf<Venue>(R"({"id": "v", "slug": "s", "name": "n", "logo": "l.png",
                                        "cover-image": {"small": "c.png"}})");
  ASSERT_TRUE(venue && venue->logo && venue->coverImage);
  EXPECT_EQ((*venue->logo)[10'000].absoluteString(), "l.png");
  EXPECT_FALSE(venue->maps || venue->polygonDictionary || venue->navigationGraph);
  EXPECT_FALSE(recordOf<Venue>(R"({"id": "v", "slug": "s", "name": "n"})")->logo);

  const auto bareMap = recordOf<Map>(R"({"id": "m"})");
  ASSERT_TRUE(bareMap);
  EXPECT_EQ(bareMap->name + bareMap->shortName, "");
  EXPECT_EQ(bareMap->elevation, 0.0);
  EXPECT_FALSE(bareMap->obj || bareMap->mtl);
  const auto map = recordOf<Map>(R"({"id": "m", "elevation": -3.5, "scene": {"obj": "a.obj"}})");
  EXPECT_EQ(map->elevation, -3.5);
  EXPECT_EQ(map->obj->absoluteString(), "a.obj");
  EXPECT_FALSE(map->mtl);

  const auto location = recordOf<Location>(
      R"({"id": "l", "name": "n", "type": "t", "description": "d", "picture": "p.png"})");
  ASSERT_TRUE(location && location->picture);
  EXPECT_EQ(location->description, "d");
  EXPECT_FALSE(location->logo);
}

TEST(Record, OneWeightSetsBothWeights) {
  struct Case {
    const char* weight;
    double constant;
    double multiplier;
  };
  for (const auto& [weight, constant, multiplier] :
       {Case{"-3", 0.0, 1.0}, Case{"0", 0.0, 1.0}, Case{"2.5", 2.5, 2.5}, Case{"null", 0.0, 1.0},
        Case{"\"4\"", 0.0, 1.0}, Case{"true", 1.0, 1.0}}) {
    SCOPED_TRACE(weight);
    const std::string member = std::string("\"weight\": ") + weight;
    const auto node = recordOf<Node>(R"({"id": "n", "x": 1, "y": 2, )" + member + "}");
    const auto vortex =
        recordOf<Vortex>(R"({"id": "v", "name": "n", "type": "t", )" + member + "}");
    EXPECT_EQ(node->constantWeight, constant);
    EXPECT_EQ(node->multiplierWeight, multiplier);
    EXPECT_EQ(vortex->constantWeight, constant);
    EXPECT_EQ(vortex->multiplierWeight, multiplier);
    EXPECT_EQ(node->z, 0.0);
  }
}

TEST(Record, VorticesAreAccessibleUnlessTheySayOtherwise) {
  const auto accessible = [](const std::string& member) {
    return recordOf<Vortex>(R"({"id": "v", "name": "n", "type": "t")" + member + "}")->accessible;
  };
  EXPECT_TRUE(accessible(""));
  EXPECT_TRUE(accessible(R"(, "accessible": null)"));
  EXPECT_TRUE(accessible(R"(, "accessible": "false")"));
  EXPECT_TRUE(accessible(R"(, "accessible": 1)"));
  EXPECT_FALSE(accessible(R"(, "accessible": false)"));
  EXPECT_FALSE(accessible(R"(, "accessible": 0)"));
}

TEST(Record, IdentityDecidesEquality) {
  const auto one = recordOf<Node>(R"({"id": "n", "x": 1, "y": 2})");
  const auto other = recordOf<Node>(R"({"id": "n", "x": 1, "y": 2})");
  EXPECT_TRUE(*one == *one);
  EXPECT_FALSE(*one == *other);
  EXPECT_FALSE(*recordOf<Map>(R"({"id": "m"})") == *recordOf<Map>(R"({"id": "m"})"));
  EXPECT_FALSE(*recordOf<Polygon>(R"({"id": "p"})") == *recordOf<Polygon>(R"({"id": "p"})"));
}

}  // namespace
}  // namespace orivanta
