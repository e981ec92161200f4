#include "Platform/Foundation/Url.hpp"

#include <gtest/gtest.h>

namespace orivanta::foundation {
namespace {

TEST(Url, TakesWellFormedReferencesAsTheyStand) {
  for (const char* text :
       {"http://h/a?b=c#d", "HTTP://H/%7Ea/../b", "a.obj", "/a", "?page=2", "//h:8/x", "#f",
        "http://[::1]:80/", "urn:a:b", "http://h/a%20b", "http://h/(a);b,c"}) {
    const auto url = Url::parse(text);
    ASSERT_TRUE(url) << text;
    EXPECT_EQ(url->absoluteString(), text);
  }
  for (const char* text : {"", " ", "http://h/a b", "a\tb", "http://h/%zz", "http://h/%2",
                           "http://[::1/", "//[1:2]", "//[1:::2]", "//[::1]x", "//a@b@c", ":a",
                           "http://h/\xC3\xA4", "a\\b", "<a>", "http://h:x/"})
    EXPECT_FALSE(Url::parse(text)) << text;
  EXPECT_FALSE(Url::parse(std::string_view("a\0b", 3)));
  EXPECT_TRUE(Url::parse(std::string(65536, ',')));
  EXPECT_FALSE(Url::parse(std::string(65537, ',')));
}

TEST(Url, AReferenceThatWouldTurnItsPathIntoAHostResolvesToNothing) {
  const Url base = *Url::parse("mail:a");
  EXPECT_EQ(Url::parse("/.//host/b", base), std::nullopt);
  EXPECT_EQ(Url::parse("/.//host:b", base), std::nullopt);
  EXPECT_EQ(Url::parse("/./host/b", base)->absoluteString(), "mail:/host/b");
  EXPECT_EQ(Url::parse("/.//b", *Url::parse("file:///a"))->absoluteString(), "file:////b");
}

TEST(Url, ResolvesReferencesAgainstABase) {
  struct Case {
    const char* reference;
    const char* resolved;
  };
  const Url base = *Url::parse("http://h:8080/1/venue?page=1");
  for (const auto& [reference, resolved] :
       {Case{"node", "http://h:8080/1/node"}, Case{"?page=2", "http://h:8080/1/venue?page=2"},
        Case{"/x/y", "http://h:8080/x/y"}, Case{"../../../x", "http://h:8080/x"},
        Case{"//other/x", "http://other/x"}, Case{"https://o/%7e/../x", "https://o/%7e/../x"},
        Case{"./a/./b", "http://h:8080/1/a/b"}, Case{"..///b", "http://h:8080/.///b"},
        Case{"//[::Ff:1.2.3.4]:8", "http://[0000:0000:0000:0000:0000:00ff:0102:0304]:8"},
        Case{"#f", "http://h:8080/1/venue?page=1#f"}})
    EXPECT_EQ(Url::parse(reference, base)->absoluteString(), resolved) << reference;
  EXPECT_FALSE(Url::parse("", base));
  EXPECT_FALSE(Url::parse("a b", base));
  EXPECT_EQ(Url::parse("x", *Url::parse("relative/base"))->absoluteString(), "x");
}

TEST(Url, NamesTheLastComponentOfItsPath) {
  struct Case {
    const char* url;
    std::optional<std::string> component;
  };
  for (const auto& [url, component] :
       {Case{"http://h/a/b.obj?c=/d#/e", "b.obj"}, Case{"http://h/a/b//", "b"},
        Case{"http://h/a%20b%C3%A9", "a bé"}, Case{"http://h/x/%2e%2E%2fa+b", "../a+b"},
        Case{"http://h/a%00b", std::string("a\0b", 3)}, Case{"b", "b"}, Case{"urn:a:b", "a:b"},
        Case{"http://h/..", ".."}, Case{"http://h/", ""}, Case{"http://h", std::nullopt},
        Case{"http://h?a/b", std::nullopt}})
    EXPECT_EQ(Url::parse(url)->lastPathComponent(), component) << url;
}

TEST(Url, NamesFiles) {
  for (const char* path : {"/a", "/a b/100%?#ü+.obj", "//a"}) {
    const Url url = Url::fromFile(path);
    EXPECT_EQ(Url::parse(url.absoluteString()), url);
    EXPECT_EQ(url.filePath(), path);
  }
  EXPECT_EQ(Url::fromFile("a").filePath(), std::filesystem::current_path() / "a");
  EXPECT_EQ(Url::parse("FILE://LocalHost/a%20b?c")->filePath(), "/a b");
  for (const char* other : {"http://h/a", "/a", "file://h/a", "file:a", "file:///a%00"})
    EXPECT_FALSE(Url::parse(other)->filePath()) << other;
}

TEST(Url, PartsWithItsCredentials) {
  using Credentials = std::optional<std::pair<std::string, std::string>>;
  struct Case {
    const char* url;
    Credentials credentials;
    const char* without;
  };
  for (const auto& [text, credentials, without] :
       {Case{"http://h/a@b?c@d", std::nullopt, "http://h/a@b?c@d"},
        Case{"https://me@h:8/1/", Credentials({"me", ""}), "https://h:8/1/"},
        Case{"HTTP://a%40b:c%3a:%C3%A9@[::1]/x", Credentials({"a@b", "c::é"}), "HTTP://[::1]/x"},
        Case{"//:@h", Credentials({"", ""}), "//h"}, Case{"a:b@c", std::nullopt, "a:b@c"}}) {
    const Url url = *Url::parse(text);
    EXPECT_EQ(url.credentials(), credentials) << text;
    EXPECT_EQ(url.withoutCredentials().absoluteString(), without);
  }
}

}  // namespace
}  // namespace orivanta::foundation
