#include "Apps/Server/PackageFile.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>

#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::server {
namespace {

namespace fs = std::filesystem;
using Segments = std::vector<std::string>;

class PackageFileTest : public testing::Test {
 protected:
  PackageFileTest() {
    root_.write("secret.txt", "secret");
    root_.write("package-2/secret.txt", "secret");
    root_.write("package/a.txt", "contents");
    root_.write("package/maps/b c.txt", "more");
    root_.write("package/.hidden", "secret");
    root_.write("package/.git/config", "secret");
  }

  std::optional<std::string> contents(const Segments& segments) const {
    const auto file = PackageFile::open(package_, segments, shortage_);
    if (!file) return std::nullopt;
    std::string bytes(file->size() + 10, '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
  }

  const test::TemporaryFolder root_;
  const fs::path package_ = fs::canonical(root_.path()) / "package";
  mutable std::error_code shortage_;
};

TEST_F(PackageFileTest, FilesInsideAreOpened) {
  EXPECT_EQ(contents({"a.txt"}), "contents");
  EXPECT_EQ(contents({"maps", "b c.txt"}), "more");
  fs::create_symlink("../a.txt", package_ / "maps/inside");
  EXPECT_EQ(contents({"maps", "inside"}), "contents");
}

TEST_F(PackageFileTest, NothingElseIs) {
  fs::create_symlink("../secret.txt", package_ / "link-out");
  fs::create_symlink(root_.path(), package_ / "folder-out");
  fs::create_symlink("../package-2", package_ / "sibling");
  fs::create_symlink(".hidden", package_ / "link-to-hidden");
  fs::create_symlink("loop", package_ / "loop");
  ASSERT_EQ(::mkfifo((package_ / "pipe").c_str(), 0600), 0);
  const Segments refused[] = {
      {},
      {""},
      {"none.txt"},
      {"maps"},
      {"maps", ""},
      {"a.txt", ""},
      {"a.txt", "x"},
      {"..", "secret.txt"},
      {"maps", "..", "..", "secret.txt"},
      {"maps", "..", "a.txt"},
      {"."},
      {".hidden"},
      {".git", "config"},
      {"../secret.txt"},
      {"maps/../../secret.txt"},
      {"/etc/passwd"},
      {"", "etc", "passwd"},
      {std::string("a.txt\0", 6)},
      {std::string("a.txt\0.png", 10)},
      {std::string(300, 'a')},
      {std::string(5000, 'a')},
      {"link-out"},
      {"folder-out", "secret.txt"},
      {"sibling", "secret.txt"},
      {"link-to-hidden"},
      {"loop"},
      {"pipe"},
  };
  for (const Segments& segments : refused)
    EXPECT_FALSE(contents(segments)) << testing::PrintToString(segments);
  EXPECT_FALSE(PackageFile::open(package_, {"/dev/null"}, shortage_));
}

TEST_F(PackageFileTest, TheVersionFollowsTheContents) {
  const auto file = PackageFile::open(package_, {"a.txt"}, shortage_);
  EXPECT_EQ(PackageFile::open(package_, {"a.txt"}, shortage_)->version(), file->version());
  root_.write("package/a.txt", "contents and more");
  EXPECT_NE(PackageFile::open(package_, {"a.txt"}, shortage_)->version(), file->version());
  std::array<char, 100> bytes{};
  EXPECT_EQ(file->read(6, bytes.data(), bytes.size()), 2U);  // without the appended bytes
}

TEST(MediaType, FollowsTheEndingOfTheName) {
  EXPECT_EQ(mediaTypeOf("maps/FLOOR.OBJ").name, "model/obj");
  EXPECT_TRUE(mediaTypeOf("a.mtl").isText);
  EXPECT_EQ(mediaTypeOf("a.png").name, "image/png");
  EXPECT_FALSE(mediaTypeOf("a.png").isText);
  EXPECT_EQ(mediaTypeOf("a.html").name, "application/octet-stream");  // a browser must not run it
  EXPECT_EQ(mediaTypeOf("png").name, "application/octet-stream");
}

}  // namespace
}  // namespace orivanta::server
