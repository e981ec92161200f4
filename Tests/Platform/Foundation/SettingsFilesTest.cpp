// Where settings come from: property lists, the main bundle, the environment's languages.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Platform/Foundation/Bundle.hpp"
#include "Platform/Foundation/Languages.hpp"
#include "Platform/Foundation/PropertyList.hpp"
#include "Tests/Support/BinaryPropertyLists.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::foundation {
namespace {

using test::binaryPropertyList;
using test::TemporaryFolder;

std::string xmlPropertyList(const std::string& body) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + body + "</plist>";
}

TEST(PropertyList, XmlAndBinaryDictionariesGiveTheirTexts) {
  const TemporaryFolder folder;
  const std::string xml = xmlPropertyList(
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
  const TemporaryFolder folder;
  const std::string binary =
      binaryPropertyList(xmlPropertyList("<dict><key>a</key><true/></dict>"));
  for (const std::string& contents :
       {std::string(), std::string("no list"), xmlPropertyList("<array/>"), xmlPropertyList(""),
        std::string("<plist><dict><key>a</key>"), binary.substr(0, binary.size() / 2),
        std::string("bplist00")})
    EXPECT_FALSE(readPropertyList(folder.write("a.plist", contents))) << contents;
  EXPECT_FALSE(readPropertyList(folder.path() / "missing.plist"));
  EXPECT_FALSE(readPropertyList(folder.path()));
}

TEST(Bundle, ListsTheTopLevelFilesOfOneTypeByName) {
  const TemporaryFolder folder;
  for (const char* name : {"b.plist", "a.plist", "c.txt", "plist", "below/d.plist"})
    folder.write(name, "");
  setMainBundleFolder(folder.path());
  EXPECT_EQ(mainBundleFiles("plist"),
            (std::vector{folder.path() / "a.plist", folder.path() / "b.plist"}));
  EXPECT_TRUE(mainBundleFiles("png").empty());
  setMainBundleFolder(folder.path() / "missing");
  EXPECT_TRUE(mainBundleFiles("plist").empty());
}

TEST(Languages, AreTheTagsOfTheEnvironmentInOrder) {
  struct Case {
    const char* language;
    const char* all;
    const char* lang;
    std::vector<std::string> tags;
  };
  const Case cases[] = {
      {"", "", "", {"en"}},
      {"", "", "de_CH.UTF-8", {"de-CH"}},
      {"ja:zh_Hant_TW:ja", "", "de", {"ja", "zh-Hant-TW", "de"}},
      {"", "pt_BR.UTF-8@euro", "C.UTF-8", {"pt-BR"}},
      {"::", "POSIX", "C", {"en"}},
      {"en\r\nX-Header: 1", "ä", "fr", {"fr"}},
  };
  for (const auto& [language, all, lang, tags] : cases) {
    setenv("LANGUAGE", language, 1);
    setenv("LC_ALL", all, 1);
    setenv("LC_MESSAGES", "", 1);
    setenv("LANG", lang, 1);
    EXPECT_EQ(preferredLanguages(), tags) << language << '|' << all << '|' << lang;
  }
}

}  // namespace
}  // namespace orivanta::foundation
