// Sources of settings: the main bundle and the languages of the environment.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Platform/Foundation/Bundle.hpp"
#include "Platform/Foundation/Languages.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::foundation {
namespace {

using test::TemporaryFolder;

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
