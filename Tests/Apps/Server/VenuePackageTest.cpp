#include "Apps/Server/VenuePackage.hpp"

#include <gmock/gmock.h>

#include "Apps/Server/PackageError.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::server {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

// Returns the error message, or "" if the folders are read successfully.
std::string refusalOf(const std::vector<std::filesystem::path>& folders) {
  try {
    readPackages(folders);
    return {};
  } catch (const PackageError& error) {
    return error.what();
  }
}

TEST(VenuePackage, PackagesAndFoldersOfThemAreRead) {
  const test::TemporaryFolder root;
  test::writeSmallPackage(root, "many/b", "beta");
  test::writeSmallPackage(root, "many/a", "alpha");
  root.write("many/not-a-package/readme.txt", "");
  test::writeSmallPackage(root, "one", "a slug/with ?");
  const auto packages = readPackages({root.path() / "one", root.path() / "many"});
  ASSERT_EQ(packages.size(), 3U);
  EXPECT_EQ(packages[0].filesPath(), "/1/files/a%20slug%2Fwith%20%3F/");
  EXPECT_EQ(packages[1].slug, "alpha");
  EXPECT_EQ(packages[2].slug, "beta");
  EXPECT_EQ(packages[2].collection("node")->size(), 5U);
  EXPECT_EQ(packages[2].collection("venue"), nullptr);
  EXPECT_TRUE(readPackages({}).empty());
}

TEST(VenuePackage, RefusalsNameTheFileAndTheReason) {
  struct Row {
    const char* file;
    const char* contents;  // null if the file is missing
    const char* reason;
  };
  const Row rows[] = {
      {"map.json", nullptr, "missing"},
      {"node.json", "", "incomplete JSON at line 1, column 1"},
      {"node.json", "[1,\n 2,,3]", "line 2, column 4"},
      {"node.json", "[] []", "line 1, column 4"},
      {"node.json", "[4", "incomplete JSON at line 1, column 3"},
      {"node.json", "5", "neither an object nor an array"},
      {"node.json", "[1e400]", "outside the range of a double"},
      {"vortex.json", "{}", "not an array"},
      {"venue.json", "[]", "not an object"},
      {"venue.json", R"({"slug": "s"})", "no string \"id\""},
      {"venue.json", R"({"id": "i", "slug": 5})", "no string \"slug\""},
      {"venue.json", R"({"id": "i", "slug": ""})", "slug"},
      {"venue.json", R"({"id": "i", "slug": ".."})", "slug"},
  };
  for (const Row& row : rows) {
    const test::TemporaryFolder root;
    test::writeSmallPackage(root, "p", "slug");
    const auto file = root.path() / "p" / row.file;
    if (row.contents == nullptr) {
      std::filesystem::remove(file);
    } else {
      root.write(file, row.contents);
    }
    EXPECT_THAT(refusalOf({root.path() / "p"}),
                AllOf(StartsWith(file.string() + ": "), HasSubstr(row.reason)));
  }
}

TEST(VenuePackage, FoldersWithoutPackagesAndSlugsThatOccurTwiceAreRefused) {
  const test::TemporaryFolder root;
  const auto nowhere = root.path() / "nowhere";
  EXPECT_THAT(refusalOf({nowhere}), StartsWith(nowhere.string()));
  EXPECT_THAT(refusalOf({root.path()}), HasSubstr("no venue.json"));
  test::writeSmallPackage(root, "first", "same");
  test::writeSmallPackage(root, "second", "same");
  EXPECT_THAT(refusalOf({root.path()}),
              AllOf(HasSubstr((root.path() / "first").string()),
                    HasSubstr((root.path() / "second").string()), HasSubstr("\"same\"")));
}

}  // namespace
}  // namespace orivanta::server
