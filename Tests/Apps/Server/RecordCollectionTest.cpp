#include "Apps/Server/RecordCollection.hpp"

#include <gmock/gmock.h>

namespace orivanta::server {
namespace {

using testing::ElementsAre;

constexpr const char* origin = "http://h";

std::string served(std::string_view record,
                   const std::vector<RecordCollection::Language>& preferred = {}) {
  RecordCollection collection;
  collection.append(record, "/f/");
  return collection.page(0, 1, origin, preferred);
}

TEST(RecordCollection, PagesAreRunsOfRecords) {
  RecordCollection collection;
  EXPECT_EQ(collection.page(0, 10, origin, {}), "[]");
  for (const char* record : {"1", R"({"logo":"a"})", "null", R"({"logo":"b"})"})
    collection.append(record, "/f/");
  EXPECT_EQ(collection.page(0, 2, origin, {}), R"([1,{"logo":"http://h/f/a"}])");
  EXPECT_EQ(collection.page(2, 2, origin, {}), R"([null,{"logo":"http://h/f/b"}])");
  EXPECT_EQ(collection.page(3, 9, origin, {}), R"([{"logo":"http://h/f/b"}])");
  EXPECT_EQ(collection.page(4, 1, origin, {}), "[]");
}

TEST(RecordCollection, WhatIsNoReferenceStaysAsItIsWritten) {
  for (const char* record :
       {"-0.0", "5e-324", "123456789012345678901234567890", R"("\u0000\b\u00e9")", R"({"a":{}})",
        R"({"x":1.0,"y":1E+2,"id":"\ud83d\ude00","id":"twice"})", R"({"logo":5,"picture":[]})",
        R"({"logo":"","picture":null,"cover-image":"http://a/b c"})",
        R"({"picture":{"small":5,"alt":"a picture","large":"//host/x"}})",
        R"({"scene":"maps/x.obj"})", R"({"scene":{"obj":null,"images":[{"url":null},{},5,null]}})",
        R"({"scene":{"images":"x.png"}})", R"({"deeper":{"logo":"a.png"}})"})
    EXPECT_EQ(served(record), '[' + std::string(record) + ']');
}

TEST(RecordCollection, ReferencesBecomeAbsolute) {
  EXPECT_EQ(
      served(R"({"logo": "a.png", "picture": {"small": "b \u00fc.png", "original": "/c.png"}})"),
      R"([{"logo":"http://h/f/a.png","picture":{"small":"http://h/f/b%20%C3%BC.png",)"
      R"("original":"http://h/f/c.png"}}])");
  EXPECT_EQ(served(R"({"scene":{"obj":"o","mtl":"m","images":[{"url":"1"},{"url":"2","w":3}]}})"),
            R"([{"scene":{"obj":"http://h/f/o","mtl":"http://h/f/m",)"
            R"("images":[{"url":"http://h/f/1"},{"url":"http://h/f/2","w":3}]}}])");
}

TEST(RecordCollection, NamesAreChosenByLanguage) {
  RecordCollection collection;
  const std::string both = R"("names":{"en":"Lift","JA":"\u6607","de":5})";
  collection.append("{\"name\":\"own\"," + both + '}', "/f/");
  collection.append('{' + both + '}', "/f/");
  collection.append(R"({"name":"own","names":{"ja":"only"}})", "/f/");
  collection.append(R"({"name":"own","names":5})", "/f/");
  ASSERT_THAT(collection.languages(), ElementsAre("en", "ja"));
  const std::string rest = R"(,{"name":"own","names":5}])";

  EXPECT_EQ(collection.page(0, 4, origin, {}), "[{\"name\":\"own\"," + both + "},{" + both + "}" +
                                                   R"(,{"name":"own","names":{"ja":"only"}})" +
                                                   rest);
  EXPECT_EQ(collection.page(0, 4, origin, {0, 1}),
            "[{\"name\":\"Lift\"," + both + "},{" + both + ",\"name\":\"Lift\"}" +
                R"(,{"name":"only","names":{"ja":"only"}})" + rest);
  EXPECT_EQ(collection.page(0, 1, origin, {1, 0}), "[{\"name\":\"\\u6607\"," + both + "}]");
}

}  // namespace
}  // namespace orivanta::server
