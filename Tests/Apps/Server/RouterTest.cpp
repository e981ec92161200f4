#include "Apps/Server/Router.hpp"

#include <gmock/gmock.h>

#include <sys/resource.h>

#include <boost/json/parse.hpp>

#include "Platform/Foundation/Base64.hpp"
#include "Platform/Network/Curl/Inflate.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::server {
namespace {

using testing::HasSubstr;

class RouterTest : public testing::Test {
 protected:
  RouterTest() {
    test::writeSmallPackage(root_, "mall", "mall");
    test::writeSmallPackage(root_, "odd", "a/b, c");
  }

  Router router(std::size_t pageSize = 2, std::optional<Credentials> credentials = {}) const {
    return Router(readPackages({root_.path()}), {"http://me:1", pageSize, std::move(credentials)});
  }

  static Response get(Router& router, std::string target) {
    return router.respond({.target = std::move(target)});
  }

  static std::string contentsOf(const Response& response) {
    if (response.text) return *response.text;
    std::string bytes(response.contentLength(), '\0');
    bytes.resize(response.file->read(0, bytes.data(), bytes.size()));
    return bytes;
  }

  const test::TemporaryFolder root_;
};

TEST_F(RouterTest, TargetsAndTheirAnswers) {
  struct Row {
    const char* target;
    unsigned status;
    const char* body;
  };
  const Row rows[] = {
      {"/1/venue?page=2", 404, "The last page is 1."},
      {"/1/node?venue=mall", 200, R"([{"id":"n1"},{"id":"n2"}])"},
      {"/1/node?venue=mall&perspective=well-known:3D&page=3", 200, R"([{"id":"n5"}])"},
      {"/1/node?venue=mall&page=4", 404, "The last page is 3."},
      {"/1/node?venue=mall&page=18446744073709551617", 404, "The last page is 3."},
      {"/1/node?venue=mall&page=2&per-page=4", 200, R"([{"id":"n5"}])"},
      {"/1/node?venue=mall&per-page=18446744073709551617", 200, "n5"},
      {"/1/node?venue=mall&page=0", 400, "must be positive integers"},
      {"/1/node?venue=mall&page=-1", 400, "must be positive integers"},
      {"/1/node?venue=mall&page=1x", 400, "must be positive integers"},
      {"/1/node?venue=mall&per-page=0", 400, "must be positive integers"},
      {"/1/%6eode?venue=m%61ll", 200, "n1"},
      {"/1/map?venue=a%2Fb,+c", 200, "http://me:1/1/files/a%2Fb%2C%20c/maps/floor.obj"},
      {"/1/category?venue=mall&page=2", 404, "The last page is 1."},
      {"/1/polygon?venue=mall", 200, "[]"},
      {"/1/node", 400, "must contain venue=SLUG"},
      {"/1/node?Venue=mall", 400, "must contain venue=SLUG"},
      {"/1/node?venue=", 404, "no venue"},
      {"/1/node?venue=none%22%00", 404, R"(no venue \"none%22%00\")"},
      {"/1/node?venue=%ff", 404, "%FF"},
      {"/1/nodes?venue=mall", 404, "Nothing exists at this path"},
      {"/1/node/?venue=mall", 404, "Nothing exists at this path"},
      {"//1/node?venue=mall", 404, "Nothing exists at this path"},
      {"/1/files/mall", 404, "Nothing exists at this path"},
      {"/1/files/mall/images/logo.png", 200, ""},
      {"/1/files/a%2fb,%20c/images/logo.png", 200, ""},
      {"/1/files/none/images/logo.png", 404, "does not exist"},
      {"/1/files/mall/../odd/node.json", 404, "does not exist"},
      {"/1/files/mall/..%2fodd%2fnode.json", 404, "does not exist"},
      {"http://host:80/1/node?flag&&=v&venue=mall", 200, "n1"},
      {"http://host/1", 404, "Nothing exists at this path"},
      {"", 400, "malformed"},
      {"*", 400, "malformed"},
      {"/1/node?%x=1", 400, "malformed"},
      {"/1/node?venue=%", 400, "malformed"},
      {"/1/files/mall/%zz", 400, "malformed"},
      {"venue", 400, "malformed"},
  };
  Router router = this->router();
  for (const Row& row : rows) {
    const Response response = get(router, row.target);
    EXPECT_EQ(response.status, row.status) << row.target;
    if (!response.text) continue;
    EXPECT_THAT(*response.text, HasSubstr(row.body)) << row.target;
    EXPECT_EQ(response.header("Content-Type"), "application/json") << row.target;
    if (row.status == 200) continue;
    const auto error = boost::json::parse(*response.text).at("error");
    EXPECT_EQ(error.at("status").to_number<unsigned>(), row.status) << row.target;
    EXPECT_TRUE(error.at("message").is_string()) << row.target;
  }
}

TEST_F(RouterTest, VenuesComeFromAllPackages) {
  Router router = this->router();
  EXPECT_EQ(*get(router, "/1/venue?venue=ignored").text,
            R"([{"id":"venue-mall","slug":"mall","name":"The mall",)"
            R"("logo":"http://me:1/1/files/mall/images/logo.png"},)"
            R"({"id":"venue-a/b, c","slug":"a/b, c","name":"The a/b, c",)"
            R"("logo":"http://me:1/1/files/a%2Fb%2C%20c/images/logo.png"}])");
  Router empty({}, {"http://me:1", 2, {}});
  EXPECT_EQ(*get(empty, "/1/venue").text, "[]");
}

TEST_F(RouterTest, LinksNameTheOtherPages) {
  Router router = this->router();
  const std::string nodes = "<http://me:1/1/node?venue=mall";
  EXPECT_EQ(get(router, "/1/node?venue=mall").header("Link"),
            nodes + "&page=2>; rel=\"next\", " + nodes + "&page=1>; rel=\"first\", " + nodes +
                "&page=3>; rel=\"last\"");
  // Headers that the server does not use may be longer than a header that it sends.
  const std::string unused = std::string(5'500, ',');
  const std::string sized = "<http://me:1/1/node?venue=a%2Fb%2C%20c&per-page=3&";
  EXPECT_EQ(get(router, "/1/node?x=" + unused + "&page=2&venue=a/b,+c&per-page=03").header("Link"),
            sized + "page=1>; rel=\"prev\", " + sized + "page=1>; rel=\"first\", " + sized +
                "page=2>; rel=\"last\"");
  EXPECT_EQ(get(router, "/1/venue?venue=" + unused).header("Link"),
            "<http://me:1/1/venue?page=1>; rel=\"first\", "
            "<http://me:1/1/venue?page=1>; rel=\"last\"");
}

TEST_F(RouterTest, UrlsBeginWithTheOriginThatTheClientSees) {
  struct Row {
    const char* host;
    const char* forwardedProtocol;
    const char* forwardedHost;
    const char* origin;
  };
  const Row rows[] = {
      {"other.example:8080", "", "", "http://other.example:8080/"},
      {"[::1]:80", "", "", "http://[::1]:80/"},
      {"", "", "", "http://me:1/"},
      {"evil\"><b", "", "", "http://me:1/"},
      {"a,b", "", "", "http://me:1/"},
      {"h:80", "https", "", "https://h:80/"},
      {"h:80", "HTTPS", "maps.example", "https://maps.example/"},
      {"h:80", "http", "maps.example:81", "http://maps.example:81/"},
      {"h:80", "http, https", "forged, maps.example", "https://maps.example/"},
      {"h:80", "javascript", "a/b", "http://h:80/"},
  };
  Router router = this->router();
  Router fixed(readPackages({root_.path()}), {"http://me:1", 2, {}, "https://public"});
  for (const Row& row : rows) {
    const Request request{.target = "/1/venue?per-page=1",
                          .host = row.host,
                          .forwardedProtocol = row.forwardedProtocol,
                          .forwardedHost = row.forwardedHost};
    const Response response = router.respond(request);
    EXPECT_THAT(*response.text, HasSubstr(std::string("\"logo\":\"") + row.origin + "1/files/"));
    EXPECT_THAT(response.header("Link"), testing::StartsWith(std::string("<") + row.origin + "1/"));
    EXPECT_THAT(fixed.respond(request).header("Link"), testing::StartsWith("<https://public/1/"));
  }
  const auto nodes = [&](const char* host, const char* query) {  // node records refer to no files
    return router.respond({.target = std::string("/1/node?venue=mall") + query, .host = host}).text;
  };
  EXPECT_EQ(nodes("a", "&per-page=5000"), nodes("b", "&per-page=6000"));
}

TEST_F(RouterTest, FilesThatCannotBeOpenedNowAreNotMissing) {
  Router router = this->router();
  EXPECT_EQ(get(router, "/1/files/mall/none").status, 404U);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  rlimit none = before;
  none.rlim_cur = 0;
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  const Response response = get(router, "/1/files/mall/images/logo.png");
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(response.status, 503U);
  EXPECT_EQ(response.header("Retry-After"), "1");
}

TEST_F(RouterTest, OtherMethodsAreRefusedAndHeadHasNoBody) {
  Router router = this->router();
  for (const char* method : {"POST", "PUT", "DELETE", "OPTIONS", "get", "BREW"}) {
    const Response response = router.respond({.method = method, .target = "/1/venue"});
    EXPECT_EQ(response.status, 405U);
    EXPECT_EQ(response.header("Allow"), "GET, HEAD");
  }
  for (const char* target :
       {"/1/venue", "/1/files/mall/images/logo.png", "/1/files/mall/maps/floor.obj", "/none"}) {
    const Response whole = get(router, target);
    const Response head = router.respond({.method = "HEAD", .target = target});
    EXPECT_FALSE(whole.bodyOmitted);
    EXPECT_TRUE(head.bodyOmitted);
    EXPECT_EQ(head.status, whole.status);
    EXPECT_EQ(head.headers, whole.headers);
    EXPECT_EQ(head.contentLength(), whole.contentLength());
  }
}

TEST_F(RouterTest, CredentialsAreRequiredOfEveryRequest) {
  Router router = this->router(2, Credentials("user", "pass:word"));
  const std::string right = foundation::base64Encoded("user:pass:word");
  for (const std::string& authorization : {"Basic " + right, "bAsIc   " + right})
    EXPECT_EQ(router.respond({.target = "/1/venue", .authorization = authorization}).status, 200U);
  for (const std::string& authorization :
       {std::string(), std::string("Basic"), std::string("Basic "), "Bearer " + right,
        "Basic " + right + right, "Basic " + right.substr(0, 8), "Basic " + right + "=",
        "Basic " + foundation::base64Encoded("user:pass:wore"),
        "Basic " + foundation::base64Encoded("other:pass:word")}) {
    for (const char* target : {"/1/venue", "/1/files/mall/images/logo.png", "/none", "%"}) {
      const Response response = router.respond({.target = target, .authorization = authorization});
      EXPECT_EQ(response.status, 401U) << authorization;
      EXPECT_THAT(response.header("WWW-Authenticate"), testing::StartsWith("Basic realm=\""));
      EXPECT_THAT(*response.text, HasSubstr(R"({"error":{"status":401,)"));
    }
  }
}

// Clients request files without an account.
TEST_F(RouterTest, FilesThatRecordsNameNeedNoAccount) {
  Router router = this->router(2, Credentials("user", "pass:word"));
  const std::string account = "Basic " + foundation::base64Encoded("user:pass:word");
  const Response maps = router.respond({.target = "/1/map?venue=mall", .authorization = account});
  const auto url = boost::json::parse(*maps.text).at(0).at("scene").at("obj").as_string();
  const std::string target(url.subview(std::string_view("http://me:1").size()));
  EXPECT_EQ(get(router, target).status, 200U) << target;
  EXPECT_EQ(router.respond({.target = target, .authorization = account}).status, 200U);
  const std::string key = target.substr(0, target.find("/files/"));  // with "/1" at its end
  const std::string file = "/files/mall/maps/floor.obj";
  for (const std::string& other :
       {key + "/venue", key + "/node?venue=mall", key, key + "/files/", key + key + file,
        "/1/key/" + key + file, "/1/key//1" + file, "/1" + file})
    EXPECT_NE(get(router, other).status, 200U) << other;
  Router changed = this->router(2, Credentials("user", "other"));
  EXPECT_EQ(get(changed, target).status, 401U);
}

TEST_F(RouterTest, LargeTextsAreCompressedForThoseWhoAcceptIt) {
  root_.write("mall/category.json", R"([{"id": ")" + std::string(3000, 'c') + "\"}]");
  Router router = this->router();
  for (const char* target : {"/1/category?venue=mall", "/1/files/mall/maps/floor.obj"}) {
    const Response plain = get(router, target);
    const Response small = router.respond({.target = target, .acceptEncoding = "gzip"});
    EXPECT_EQ(plain.header("Content-Encoding"), "");
    EXPECT_EQ(small.header("Content-Encoding"), "gzip");
    EXPECT_LT(small.contentLength(), plain.contentLength() / 10);
    EXPECT_EQ(network::gunzipped(*small.text, 1 << 20), contentsOf(plain));
    EXPECT_EQ(router.respond({.target = target, .acceptEncoding = "gzip"}).text, small.text);
    EXPECT_NE(small.header("ETag"), plain.header("ETag"));
    for (const Response* response : {&plain, &small})
      EXPECT_THAT(response->header("Vary"), HasSubstr("Accept-Encoding"));
  }
  for (const char* target : {"/1/venue", "/1/files/mall/images/logo.png"})
    EXPECT_EQ(
        router.respond({.target = target, .acceptEncoding = "gzip"}).header("Content-Encoding"),
        "");
}

TEST_F(RouterTest, KnownRepresentationsAreNotSentAgain) {
  Router router = this->router();
  for (const char* target : {"/1/location?venue=mall", "/1/files/mall/maps/floor.obj",
                             "/1/files/mall/images/logo.png"}) {
    const Response first = get(router, target);
    const std::string tag = first.header("ETag");
    EXPECT_EQ(get(router, target).header("ETag"), tag);
    const Response again = router.respond({.target = target, .ifNoneMatch = tag});
    EXPECT_EQ(again.status, 304U) << target;
    EXPECT_EQ(again.header("ETag"), tag);
    EXPECT_EQ(again.header("Vary"), first.header("Vary"));
    EXPECT_FALSE(again.text || again.file);
    EXPECT_EQ(router.respond({.target = target, .ifNoneMatch = "\"other\""}).status, 200U);
  }
  const std::string plain = get(router, "/1/files/mall/maps/floor.obj").header("ETag");
  EXPECT_EQ(router
                .respond({.target = "/1/files/mall/maps/floor.obj",
                          .acceptEncoding = "gzip",
                          .ifNoneMatch = plain})
                .status,
            200U);
}

}  // namespace
}  // namespace orivanta::server
