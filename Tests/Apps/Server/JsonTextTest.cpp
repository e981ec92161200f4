#include "Apps/Server/JsonText.hpp"

#include <gmock/gmock.h>

namespace orivanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(JsonText, ElementsAndMembersAreTakenApartAsTheyAreWritten) {
  EXPECT_THAT(jsonElements(" [ ] "), IsEmpty());
  EXPECT_THAT(jsonElements(R"([1e2 , "a,]\"" ,[2,[3]], {"k":[1,2]},null])"),
              ElementsAre("1e2", R"("a,]\"")", "[2,[3]]", R"({"k":[1,2]})", "null"));

  EXPECT_THAT(jsonMembers(" { } "), IsEmpty());
  const auto members = jsonMembers(R"({ "a" : -0.0 , "\u006eames":{"b":"}"}, "a":"\\"})");
  ASSERT_EQ(members.size(), 3U);
  EXPECT_EQ(members[0].key, "a");
  EXPECT_EQ(members[0].value, "-0.0");
  EXPECT_EQ(members[1].key, "names");
  EXPECT_EQ(members[1].keyText, R"("\u006eames")");
  EXPECT_EQ(members[1].value, R"({"b":"}"})");
  EXPECT_EQ(members[2].value, R"("\\")");
}

TEST(JsonText, CompactTextLosesOnlyTheSpaceBetweenItsParts) {
  std::string output = "[";
  appendCompactJson(output, " { \"a b\" :\t[ 1 ,\r\n \"\\\" x \\\\\" , \"\" ] } ");
  EXPECT_EQ(output, R"([{"a b":[1,"\" x \\",""]})");
}

TEST(JsonText, KindsAndContents) {
  EXPECT_EQ(jsonKind(" {}"), JsonKind::object);
  EXPECT_EQ(jsonKind("\n[]"), JsonKind::array);
  EXPECT_EQ(jsonKind(R"("")"), JsonKind::text);
  for (const char* other : {"1", "-1", "true", "null"}) EXPECT_EQ(jsonKind(other), JsonKind::other);
  EXPECT_EQ(jsonTextContent(R"( "a\/\u0000é\ud83d\ude00" )"), std::string("a/\0é😀", 9));
}

}  // namespace
}  // namespace orivanta::server
