#include "Apps/Server/WebPage.hpp"

#include <gmock/gmock.h>

#include <stdexcept>

#include "Apps/Server/Gzip.hpp"
#include "Apps/Server/Router.hpp"
#include "Platform/Network/Curl/Inflate.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::server {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class WebPageTest : public testing::Test {
 protected:
  WebPageTest() { test::writeSmallPackage(root_, "mall", "mall"); }

  Router router(const std::optional<fs::path>& web) const {
    Router::Options options{"http://me:1", 2, Credentials("me", "pw")};
    options.web = web;
    return Router(readPackages({root_.path() / "mall"}), options);
  }

  const test::TemporaryFolder root_;
};

std::string contentsOf(const Response& response) {
  if (response.text) return *response.text;
  std::string bytes(response.contentLength(), '\0');
  bytes.resize(response.file->read(0, bytes.data(), bytes.size()));
  return bytes;
}

TEST_F(WebPageTest, FilesAreServedWithoutCredentialsBesideTheApi) {
  const std::string module(5000, 'm');
  for (const char* name : {"index.html", "sw.js", "en/index.html", "1/venue", "a.webmanifest",
                           "assets/app-BfC4v9aK.wasm", "a.woff2"})
    root_.write(fs::path("page") / name, module);
  root_.write("mall/images/sign.svg", "<svg/>");
  root_.write("page/main.js", "source");
  root_.write("page/main.js.gz", gzipped(std::string("source")));
  fs::create_symlink("../mall/venue.json", root_.path() / "page/out.json");
  fs::create_symlink("page", root_.path() / "current");
  Router router = this->router(root_.path() / "current");
  struct Row {
    const char* target;
    unsigned status;
    const char* type;
    const char* caching = "";
  };
  const Row rows[] = {
      {"/?venue=mall&from=a", 200, "text/html; charset=utf-8", "no-cache"},
      {"/en/", 200, "text/html; charset=utf-8", "no-cache"},
      {"/sw.js", 200, "text/javascript; charset=utf-8", "no-cache"},
      {"/assets/app-BfC4v9aK.wasm", 200, "application/wasm", "public, max-age=31536000, immutable"},
      {"/a.webmanifest", 200, "application/manifest+json", "no-cache"},
      {"/a.woff2", 200, "font/woff2", "no-cache"},
      {"/out.json", 404, "application/json"},
      {"/en", 404, "application/json"},
      {"/..%2fmall%2fvenue.json", 404, "application/json"},
      {"//1/venue", 404, "application/json"},
      {"/1/venue", 401, "application/json"},
      {"/%31/venue", 401, "application/json"},
      {"/%zz", 401, "application/json"},
  };
  for (const Row& row : rows) {
    const Response response = router.respond({.target = row.target});
    EXPECT_EQ(response.status, row.status) << row.target;
    EXPECT_EQ(response.header("Content-Type"), row.type) << row.target;
    EXPECT_EQ(response.header("Cache-Control"), row.caching) << row.target;
    EXPECT_EQ(response.header("Content-Security-Policy").empty(), row.status == 401) << row.target;
    if (row.status != 200) continue;
    const Response again =
        router.respond({.target = row.target, .ifNoneMatch = response.header("ETag")});
    EXPECT_EQ(again.status, 304U) << row.target;
    EXPECT_EQ(again.header("Cache-Control"), row.caching) << row.target;
  }
  for (const auto& [target, contents] :
       {std::pair("/main.js", std::string("source")), {"/assets/app-BfC4v9aK.wasm", module}}) {
    const Response small = router.respond({.target = target, .acceptEncoding = "gzip"});
    EXPECT_EQ(small.header("Content-Encoding"), "gzip") << target;
    EXPECT_EQ(network::gunzipped(contentsOf(small), 1 << 20), contents) << target;
    const Response plain = router.respond({.target = target});
    EXPECT_EQ(contentsOf(plain), contents);
    EXPECT_EQ(plain.header("Vary"), "Accept-Encoding");
    EXPECT_NE(plain.header("ETag"), small.header("ETag"));
  }
  // A picture of a package must not run scripts with the rights of the page.
  EXPECT_THAT(
      router.respond({.target = "/1/files/mall/images/sign.svg", .authorization = "Basic bWU6cHc="})
          .header("Content-Security-Policy"),
      HasSubstr("sandbox"));
  root_.write("newer/index.html", "newer");
  fs::remove(root_.path() / "current");
  EXPECT_EQ(router.respond({.target = "/"}).status, 404U);
  fs::create_symlink("newer", root_.path() / "current");
  EXPECT_EQ(contentsOf(router.respond({.target = "/"})), "newer");
}

TEST_F(WebPageTest, WithoutAPageTheRootSaysHowToMakeOne) {
  Router router = this->router({});
  const Response text = router.respond({.target = "/", .host = "h:80", .accept = "*/*"});
  const Response page = router.respond(
      {.target = "/", .host = "<b>", .accept = "text/html,application/xml;q=0.9,*/*;q=0.8"});
  EXPECT_EQ(text.header("Content-Type"), "text/plain; charset=utf-8");
  EXPECT_THAT(*text.text, testing::AllOf(HasSubstr("http://h:80/1/"), HasSubstr("--web")));
  EXPECT_EQ(page.header("Content-Type"), "text/html; charset=utf-8");
  EXPECT_THAT(*page.text, testing::AllOf(HasSubstr("http://me:1/1/"), HasSubstr("--web")));
  EXPECT_EQ(router.respond({.target = "/index.html"}).status, 401U);
}

TEST_F(WebPageTest, FoldersWithoutAPageAreRefused) {
  root_.write("empty/readme.txt", "");
  fs::create_directory(root_.path() / "link");
  fs::create_symlink("../mall/venue.json", root_.path() / "link/index.html");
  for (const char* folder : {"none", "mall/venue.json", "empty", "link"})
    EXPECT_THROW(router(root_.path() / folder), std::invalid_argument) << folder;
}

TEST(WebPage, HashesInNames) {
  for (const char* name : {"index-BfC4v9aK.js", "a.b-0123abcd.css", "chunk-7XK2Q4PA.mjs"})
    EXPECT_TRUE(hasHashInName(name)) << name;
  for (const char* name : {"index.html", "index-20260101.js", "orivanta-viewer.js", "0a1b2c3d.css",
                           "page-version2.js", "a-Bf4.js", "", "-.", "a-BfC4v9aK1.js"})
    EXPECT_FALSE(hasHashInName(name)) << name;
}

}  // namespace
}  // namespace orivanta::server
