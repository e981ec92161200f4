#include "Platform/Foundation/Plist/BinaryPropertyList.hpp"

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cstdlib>

#include "Platform/Foundation/PropertyList.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::foundation {
namespace {

std::string binaryPropertyList(const std::string& xml) {
  plist_t root = nullptr;
  plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
  char* bytes = nullptr;
  std::uint32_t length = 0;
  plist_to_bin(root, &bytes, &length);
  std::string binary(bytes, length);
  plist_free(root);
  std::free(bytes);
  return binary;
}

std::string xmlOf(const std::string& body) { return "<plist>" + body + "</plist>"; }
std::string binaryOf(const std::string& body) { return binaryPropertyList(xmlOf(body)); }

TEST(BinaryPropertyList, TextsOfAnyLengthAndScriptAreRead) {
  const std::string longText(70'000, 'x');
  // Characters of one, two, three and four bytes in UTF-8.
  const std::string scripts = "a\xC3\xA9\xE9\xA7\x85\xF0\x9F\x9A\x87z";
  std::string body = "<dict><key>long</key><string>" + longText + "</string><key>" + scripts +
                     "</key><string>" + scripts + "</string><key>none</key><string></string>";
  for (int i = 0; i < 300; ++i)
    body += "<key>k" + std::to_string(i) + "</key><integer>" + std::to_string(i) + "</integer>";
  const auto entries = readBinaryPropertyList(binaryOf(body + "</dict>"));
  ASSERT_TRUE(entries);
  EXPECT_EQ(entries->size(), 303U);
  EXPECT_EQ(entries->at("long"), longText);
  EXPECT_EQ(entries->at(scripts), scripts);
  EXPECT_EQ(entries->at("none"), "");
  EXPECT_FALSE(entries->at("k299"));
}

TEST(BinaryPropertyList, ATextMayHoldANulAndHalfASurrogatePair) {
  std::string binary = binaryOf("<dict><key>a</key><string>b-c</string></dict>");
  binary[binary.find("b-c") + 1] = '\0';
  EXPECT_EQ(readBinaryPropertyList(binary)->at("a"), std::string("b\0c", 3));
  binary = binaryOf("<dict><key>a</key><string>\xF0\x9F\x9A\x87z</string></dict>");
  const std::size_t high = binary.find("\xD8\x3D");
  binary.replace(high, 2, std::string("\0y", 2));
  EXPECT_EQ(readBinaryPropertyList(binary)->at("a"), "y\xEF\xBF\xBDz");
}

TEST(BinaryPropertyList, DamageAnywhereIsHarmless) {
  const std::string binary =
      binaryOf("<dict><key>a</key><string>text</string><key>b</key><array><true/></array></dict>");
  ASSERT_TRUE(readBinaryPropertyList(binary));
  for (std::size_t length = 0; length < binary.size(); ++length)
    EXPECT_FALSE(readBinaryPropertyList(std::string_view(binary).substr(0, length)));
  for (std::size_t place = 0; place < binary.size(); ++place)
    for (int value = 0; value < 256; ++value) {
      std::string damaged = binary;
      damaged[place] = static_cast<char>(value);
      readBinaryPropertyList(damaged);
    }
  EXPECT_FALSE(readBinaryPropertyList(binaryOf("<array><string>a</string></array>")));
}

TEST(BinaryPropertyList, ManyEntriesThatShareALongTextAreRefused) {
  std::string body = "<dict>";
  for (int i = 0; i < 1000; ++i)
    body += "<key>k" + std::to_string(1000 + i) + "</key><integer>7</integer>";
  std::string binary =
      binaryOf(body + "<key>text</key><string>" + std::string(100'000, 'x') + "</string></dict>");
  ASSERT_TRUE(readBinaryPropertyList(binary));
  // The dictionary comes first: a marker, a count of three bytes, and references of two bytes each,
  // keys before values. The test makes every value refer to the last object, the string.
  const std::size_t values = binary.find("\xDF\x11\x03\xE9") + 4 + 1001 * std::size_t{2};
  const std::string reference = binary.substr(values + 1000 * std::size_t{2}, 2);
  for (std::size_t i = 0; i < 1000; ++i) binary.replace(values + 2 * i, 2, reference);
  EXPECT_FALSE(readBinaryPropertyList(binary));
}

TEST(PropertyList, XmlAndBinaryDictionariesGiveTheirTexts) {
  const test::TemporaryFolder folder;
  const std::string xml =
      R"(<?xml version="1.0" encoding="UTF-8"?>)" +
      xmlOf(
          "<dict><key>text</key><string>wört</string><key>empty</key><string/><key>number</key>"
          "<integer>7</integer><key>list</key><array><string>x</string></array></dict>");
  for (const std::string& contents : {xml, binaryPropertyList(xml)}) {
    const auto entries = readPropertyList(folder.write("a.plist", contents));
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 4U);
    EXPECT_EQ(entries->at("text"), "wört");
    EXPECT_EQ(entries->at("empty"), "");
    EXPECT_FALSE(entries->at("number"));
    EXPECT_FALSE(entries->at("list"));
  }
}

TEST(PropertyList, AnythingElseIsNone) {
  const test::TemporaryFolder folder;
  const std::string binary = binaryPropertyList(xmlOf("<dict><key>a</key><true/></dict>"));
  for (const std::string& contents : {std::string(), std::string("no list"), xmlOf("<array/>"),
                                      xmlOf(""), std::string("<plist><dict><key>a</key>"),
                                      binary.substr(0, binary.size() / 2), std::string("bplist00")})
    EXPECT_FALSE(readPropertyList(folder.write("a.plist", contents))) << contents;
  EXPECT_FALSE(readPropertyList(folder.path() / "missing.plist"));
  EXPECT_FALSE(readPropertyList(folder.path()));
}

TEST(PropertyList, DeepNestingAndNulBytesAreRefused) {
  const test::TemporaryFolder folder;
  std::string deep = "<plist><dict><key>a</key>";
  for (int i = 0; i < 1'000'000; ++i) deep += "<array>";
  for (int i = 0; i < 1'000'000; ++i) deep += "</array>";
  EXPECT_FALSE(readPropertyList(folder.write("deep.plist", deep + "</dict></plist>")));
  std::string nul = "<plist><dict><key>a-b</key><string>c</string></dict></plist>";
  EXPECT_TRUE(readPropertyList(folder.write("nul.plist", nul)));
  nul[nul.find('-')] = '\0';
  EXPECT_FALSE(readPropertyList(folder.write("nul.plist", nul)));
}

}  // namespace
}  // namespace orivanta::foundation
