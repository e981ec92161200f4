#include "Source/Guidance/Words/MessageCatalog.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/MessageFile.hpp"

namespace orivanta::guidance {
namespace {

using namespace std::string_view_literals;

TEST(MessageCatalog, ReadsBothByteOrders) {
  for (const bool bigEndian : {false, true}) {
    const auto catalog = MessageCatalog::read(
        test::messageFile({{"", "Language: xx\nPlural-Forms:  nplurals=1; plural=0\n"},
                           {"key\4Text", "Übersetzt"},
                           {"floors\4one floor\0{n} floors"sv, "eins\0{n}"sv},
                           {"no context", "skipped"}},
                          bigEndian));
    ASSERT_TRUE(catalog);
    EXPECT_EQ(catalog->headerField("Plural-Forms"), "nplurals=1; plural=0");
    EXPECT_EQ(catalog->headerField("Lang"), "");
    EXPECT_EQ(catalog->messages(),
              (MessageCatalog::Messages{{"key", {"Übersetzt"}}, {"floors", {"eins", "{n}"}}}));
    EXPECT_EQ(catalog->find("no context"), nullptr);
  }
}

TEST(MessageCatalog, RejectsDamagedFiles) {
  const std::string good = test::messageFile({{"", "Language: xx\n"}, {"a\4A", "B"}});
  ASSERT_TRUE(MessageCatalog::read(good));
  for (std::size_t size = 0; size < good.size(); ++size)
    EXPECT_FALSE(MessageCatalog::read(good.substr(0, size))) << size;
  struct Case {
    std::size_t offset;
    std::string_view bytes;
  };
  for (const Case& each : {Case{0, "\xdd"},                // the magic number
                           {6, "\2"},                      // the version
                           {8, "\xff\xff\xff\xff"},        // the number of texts
                           {12, "\xf8\xff\xff\xff"},       // where the originals are
                           {28 + 8, "\xff\xff\xff\xff"},   // the length of the second original
                           {28 + 12, "\xff\xff\xff\xff"},  // where it is
                           {28 + 16, "\5"},                // a text that does not end there
                           {good.size() - 2, "\x80"},      // invalid UTF-8
                           {good.size() - 2, "\x1b"}})     // a control character
    EXPECT_FALSE(
        MessageCatalog::read(std::string(good).replace(each.offset, each.bytes.size(), each.bytes)))
        << each.offset;
  EXPECT_FALSE(MessageCatalog::read(good + std::string(1U << 20U, '\0')));
  std::string overlapping = test::messageFile({{"a\4A", "B"}, {"b\4B", std::string(500, 'x')}});
  for (const std::size_t entry : {28, 36, 44}) overlapping.replace(entry, 8, overlapping, 52, 8);
  EXPECT_FALSE(MessageCatalog::read(overlapping));
}

}  // namespace
}  // namespace orivanta::guidance
