#include "Apps/Server/PackageStore.hpp"

#include <gmock/gmock.h>

#include <tuple>

#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::server {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

TEST(PackageStore, PackagesAreReadAgainWhenTheyWereReplaced) {
  const test::TemporaryFolder folder;
  const fs::path root = folder.path();
  const auto writePackage = [&](const char* name, const char* node) {
    test::writeSmallPackage(folder, name, "mall");
    folder.write(fs::path(name) / "node.json", node);
  };
  writePackage("first", "[1]");
  test::writeSmallPackage(folder, "other", "other");
  fs::create_directory_symlink("first", root / "linked");
  std::string reported;
  PackageStore store(readPackages({root / "linked", root / "other"}), std::chrono::milliseconds(0),
                     [&](const std::string& line) {
                       reported = line;
                       throw 1;
                     });
  const auto nodes = [&] {
    return store.current()->package("mall")->collection("node")->page(0, 10, "", {});
  };
  const auto before = store.current();
  EXPECT_EQ(nodes(), "[1]");
  EXPECT_EQ(store.current(), before);

  writePackage("next", "[2]");
  fs::rename(root / "first", root / "old");
  EXPECT_EQ(nodes(), "[1]");
  fs::rename(root / "next", root / "first");
  EXPECT_EQ(nodes(), "[2]");
  EXPECT_NE(store.current()->number, before->number);
  writePackage("second", "[3]");
  fs::create_directory_symlink("second", root / "new-link");
  fs::rename(root / "new-link", root / "linked");
  EXPECT_EQ(nodes(), "[3]");
  fs::rename(folder.write("file", "[4]"), root / "second/node.json");
  EXPECT_EQ(nodes(), "[4]");
  EXPECT_EQ(before->package("mall")->collection("node")->page(0, 1, "", {}), "[1]");

  for (const auto& [file, contents, complaint] :
       std::vector<std::tuple<const char*, const char*, const char*>>{
           {"second/node.json", "[4", "not JSON"},
           {"second/venue.json", R"({"id": "i", "slug": "other"})", "also used by"}}) {
    const auto kept = root / "kept";
    fs::copy_file(root / file, kept);
    fs::rename(folder.write("file", contents), root / file);
    EXPECT_EQ(nodes(), "[4]");
    EXPECT_THAT(std::exchange(reported, {}), HasSubstr(complaint));
    EXPECT_EQ(nodes(), "[4]");
    EXPECT_EQ(reported, "");  // not reloaded with every request
    fs::rename(kept, root / file);
    EXPECT_EQ(nodes(), "[4]");
    EXPECT_THAT(reported, HasSubstr("reloaded"));
  }
}

}  // namespace
}  // namespace orivanta::server
