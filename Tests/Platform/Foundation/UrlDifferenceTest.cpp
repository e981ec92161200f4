// Compares URLs with uriparser, which also implements RFC 3986.
#include <gtest/gtest.h>
#include <uriparser/Uri.h>

#include <cstring>
#include <random>

#include "Platform/Foundation/Url.hpp"

namespace orivanta::foundation {
namespace {

class Uri {
 public:
  explicit Uri(std::string text) : text_(std::move(text)) {
    const char* fault = nullptr;
    isValid_ = uriParseSingleUriExA(&uri_, text_.data(), text_.data() + text_.size(), &fault) == 0;
  }
  ~Uri() {
    if (isValid_) uriFreeUriMembersA(&uri_);
  }
  Uri(const Uri&) = delete;
  Uri& operator=(const Uri&) = delete;

  bool isValid() const { return isValid_; }
  const UriUriA& operator*() const { return uri_; }

 private:
  const std::string text_;
  UriUriA uri_{};
  bool isValid_ = false;
};

std::string textOf(const UriTextRangeA& range) {
  return range.first == nullptr ? std::string() : std::string(range.first, range.afterLast);
}

std::string decoded(std::string text) {
  text.resize(static_cast<std::size_t>(uriUnescapeInPlaceA(text.data()) - text.data()));
  return text;
}

// The components, one a line. A missing user name differs from an empty one.
std::string componentsOf(const UriUriA& uri) {
  std::string path(uri.absolutePath != 0 || (uri.hostText.first && uri.pathHead) ? "/" : "");
  for (const auto* segment = uri.pathHead; segment != nullptr; segment = segment->next)
    path += textOf(segment->text) + (segment->next != nullptr ? "/" : "");
  std::string user = "none";
  if (uri.userInfo.first != nullptr) {
    const std::string text = textOf(uri.userInfo);
    const std::size_t colon = std::min(text.find(':'), text.size());
    user = decoded(text.substr(0, colon)) + " " +
           decoded(text.substr(std::min(colon + 1, text.size())));
  }
  return textOf(uri.scheme) + '\n' + user + '\n' + textOf(uri.hostText) + '\n' +
         textOf(uri.portText) + '\n' + path + '\n' + textOf(uri.query);
}

std::string componentsOf(const Url& url) {
  const auto user = url.credentials();
  return url.scheme() + '\n' + (user ? user->first + " " + user->second : "none") + '\n' +
         url.host() + '\n' + url.port() + '\n' + url.path() + '\n' + url.query();
}

// Returns nothing if the result would have to be read as one with a host.
std::optional<std::string> resolved(const std::string& reference, const Url& base) {
  const Uri uri(reference);
  const Uri baseUri(base.absoluteString());
  UriUriA result;
  if (uriAddBaseUriA(&result, &*uri, &*baseUri) != URI_SUCCESS) return reference;
  int length = 0;
  uriToStringCharsRequiredA(&result, &length);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  uriToStringA(text.data(), &result, length + 1, nullptr);
  text.resize(static_cast<std::size_t>(length));
  const bool hasHost = result.hostText.first != nullptr;
  uriFreeUriMembersA(&result);
  const Uri again(text);
  if (!again.isValid() || ((*again).hostText.first != nullptr) != hasHost) return std::nullopt;
  return text;
}

TEST(Url, AgreesWithUriparser) {
  const std::vector<const char*> parts = {
      "h",    "a",        "b1",       "1",       "255",  "256",  "01",    "ffFf",   "/",
      "/",    "/",        "//",       "..",      ".",    "/../", "/./",   "?",      "#",
      ":",    ":",        "::",       "@",       "[",    "]",    "%41",   "%2f",    "%00",
      "%",    "%g1",      "v1.",      "~",       "!&'*", "+-_=", "$(,;)", "mail:",  " ",
      "\xC3", "http://h", "file:///", "http://", "{",    "^",    "\\\"|", "\x7F\n", "[::1]",
      "://",  "[v1.:",    "1.2.3.4",  "]:80",    "//[",  "1:2:"};
  const std::vector<const char*> addressParts = {
      ":", ":",   ":",    ":",          ":",       ":",        "::",
      "1", "0ff", "fFfF", "12345",      "1.2.3.4", "255.1.1.", "256.1.1.",
      "7", "01",  "g",    "1:2:3:4:5:", "v1.",     "v",        "."};
  std::mt19937 random(1);
  const auto joined = [&](const std::vector<const char*>& choice, std::size_t most) {
    std::string text;
    for (std::size_t i = random() % most; i < most; ++i) text += choice[random() % choice.size()];
    return text;
  };
  const auto text = [&] {
    if (random() % 2 == 0) return joined(parts, 9);
    return "//[" + joined(addressParts, 7) + "]" + (random() % 2 == 0 ? ":8/" : "/");
  };
  Url base = *Url::parse("http://h/a");
  int resolutions = 0;
  for (int i = 0; i < 100'000; ++i) {
    const std::string reference = text();
    const Uri uri(reference);
    const auto url = Url::parse(reference);
    ASSERT_EQ(url.has_value(), uri.isValid() && !reference.empty()) << reference;
    if (!url) continue;
    ASSERT_EQ(componentsOf(*url), componentsOf(*uri)) << reference;
    const auto result = Url::parse(reference, base);
    const auto expected =
        url->isAbsolute() || !base.isAbsolute() ? reference : resolved(reference, base);
    ASSERT_EQ(result ? std::optional(result->absoluteString()) : std::nullopt, expected)
        << reference << " with the base " << base.absoluteString();
    resolutions += expected == reference ? 0 : 1;
    if (url->isAbsolute() || random() % 100 == 0) base = *url;
  }
  EXPECT_GT(resolutions, 1000);
}

TEST(Url, EncodesFilesAsUriparserDoes) {
  std::string path = "/";
  for (int byte = 1; byte < 256; ++byte) path += static_cast<char>(byte);
  std::string expected(3 * path.size() + 8, '\0');
  uriUnixFilenameToUriStringA(path.c_str(), expected.data());
  EXPECT_EQ(Url::fromFile(path).absoluteString(), expected.c_str());
  EXPECT_EQ(Url::fromFile(path).filePath(), path);
}

}  // namespace
}  // namespace orivanta::foundation
