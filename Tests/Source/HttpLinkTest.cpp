#include "Source/HttpLink.hpp"

#include <gmock/gmock.h>

namespace orivanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Parameters = std::vector<std::pair<std::string, std::string>>;

TEST(HttpLink, ReadsOneLinkValue) {
  struct {
    std::string header, uri;
    Parameters parameters;
  } const cases[] = {
      {"<u>; rel=\"next\"", "u", {{"rel", "next"}}},
      {"<u>;rel=\"next\";type=\"t\"", "u", {{"rel", "next"}, {"type", "t"}}},
      {" \t<u> ; rel=\"next\" ", "u", {{"rel", "next"}}},
      {"<u>", "u", {}},
      {"", "", {}},
      {"<>", "", {}},
      {"<", "<", {}},
      {">", ">", {}},
      {"u; rel=next", "u", {{"rel", "next"}}},
      {"<u; rel=next", "<u", {{"rel", "next"}}},
      {"<<u>>", "<u>", {}},
      {"<u>\n; rel=next", "<u>\n", {{"rel", "next"}}},
      {"<u>; rel=next; rel=\"last\"", "u", {{"rel", "next"}}},
      {"<u>; rel", "u", {{"rel", ""}}},
      {"<u>; rel=", "u", {{"rel", ""}}},
      {"<u>; rel=\"\"", "u", {{"rel", ""}}},
      {"<u>;", "u", {{"", ""}}},
      {"<u>; =x", "u", {{"", "x"}}},
      {"<u>; rel = \"next\"", "u", {{"rel ", " \"next\""}}},
      {"<u>; rel=\"next", "u", {{"rel", "\"next"}}},
      {"<u>; rel=next\"", "u", {{"rel", "next\""}}},
      {"<u>; q=\"a=b\"", "u", {{"q", "a=b"}}},
      {"<u>; title=\"a; b\"", "u", {{"title", "\"a"}, {"b\"", ""}}},
      {"<u?a;b>; rel=next", "<u?a", {{"b>", ""}, {"rel", "next"}}},
  };
  for (const auto& value : cases) {
    const Link link = Link::fromHeader(value.header);
    EXPECT_EQ(link.uri, value.uri) << value.header;
    EXPECT_EQ(Parameters(link.parameters.begin(), link.parameters.end()), value.parameters)
        << value.header;
  }
}

TEST(HttpLink, CutsAHeaderAtEveryComma) {
  const auto urisOf = [](std::string_view header) {
    std::vector<std::string> uris;
    for (const Link& link : parseLinkHeader(header)) uris.push_back(link.uri);
    return uris;
  };
  EXPECT_THAT(urisOf("<2>; rel=\"next\", <9>; rel=\"last\""), ElementsAre("2", "9"));
  EXPECT_THAT(urisOf("<a,b>; rel=next"), ElementsAre("<a", "b>"));
  EXPECT_THAT(urisOf(",,"), ElementsAre("", "", ""));
  EXPECT_THAT(urisOf(""), ElementsAre(""));
}

TEST(HttpLink, HelpersCutAndTrim) {
  EXPECT_THAT(separateBy(",")(" a ,\tb\t,\n c\n,,"), ElementsAre("a", "b", "\n c\n", "", ""));
  EXPECT_THAT(separateBy("--")("a--b-c---d"), ElementsAre("a", "b-c", "-d"));
  EXPECT_THAT(split("=")("a=b=c"), Pair("a", "b=c"));
  EXPECT_THAT(split("=")("a"), Pair("a", ""));
  EXPECT_THAT(split("=")("="), Pair("", ""));
  const auto unquoted = trim({'(', ')'});
  EXPECT_EQ(unquoted("((a))"), "(a)");
  EXPECT_EQ(unquoted("()"), "");
  for (const char* unchanged : {"", "(", ")", "(a", "a)", ")a("})
    EXPECT_EQ(unquoted(unchanged), unchanged);
  EXPECT_THAT(takeFirst({"a", "b", "c"}), Pair("a", ElementsAre("b", "c")));
  EXPECT_THAT(takeFirst({"a"}), Pair("a", IsEmpty()));
  EXPECT_THAT(takeFirst({}), Pair("", IsEmpty()));
}

TEST(HttpLink, IsAValueHashedByItsUri) {
  const Link link("u", {{"rel", "next"}, {"type", "t"}});
  EXPECT_EQ(link, Link("u", {{"type", "t"}, {"rel", "next"}}));
  const Link others[] = {Link("u"), Link("u", {{"rel", "next"}}),
                         Link("u", {{"rel", "next"}, {"type", "x"}}),
                         Link("u", {{"rel", "next"}, {"rev", "t"}})};
  for (const Link& other : others) {
    EXPECT_FALSE(link == other) << other.header();
    EXPECT_FALSE(other == link) << other.header();
    EXPECT_EQ(std::hash<Link>()(link), std::hash<Link>()(other));
  }
  EXPECT_FALSE(Link("u") == Link("v"));
}

TEST(HttpLink, RendersAsHeaderAndAsHtml) {
  const std::string canonical = "</a?page=2>; rel=\"next\"; rev=\"prev\"; type=\"t\"";
  const Link link = Link::fromHeader(canonical);
  EXPECT_EQ(link.header(), canonical);
  EXPECT_EQ(link.html(), "<link href=\"/a?page=2\" rel=\"next\" rev=\"prev\" type=\"t\" />");
  EXPECT_EQ(Link("\"{}\"").header(), "<\"{}\">");
  EXPECT_EQ(Link("u").html(), "<link href=\"u\" />");
  EXPECT_EQ(link.relationType(), "next");
  EXPECT_EQ(link.reverseRelationType(), "prev");
  EXPECT_EQ(link.type(), "t");
  EXPECT_FALSE(Link("u").relationType());
}

network::HttpUrlResponse responseFrom(const char* url,
                                      std::vector<std::pair<std::string, std::string>> fields) {
  return {url != nullptr ? foundation::Url::parse(url) : std::nullopt, 200, std::move(fields)};
}

TEST(HttpLink, LinksOfAResponseAreResolvedAgainstItsUrl) {
  const char* const url = "http://h:1/a/b?page=1";
  const std::pair<std::string, std::string> cases[] = {
      {"?page=2", "http://h:1/a/b?page=2"}, {"not a url", "not a url"}, {"", ""}};
  for (const auto& [uri, resolved] : cases)
    EXPECT_EQ(links(responseFrom(url, {{"Link", "<" + uri + ">"}})).at(0).uri, resolved);
  EXPECT_EQ(links(responseFrom(nullptr, {{"Link", "<?page=2>"}})).at(0).uri, "?page=2");
}

TEST(HttpLink, FindsTheFirstLinkWithTheWantedParameters) {
  const char* const url = "http://h/";
  const auto response =
      responseFrom(url, {{"X-Link", "<0>; rel=next"},
                         {"link", "<1>; rel=\"next prev\", <2>; rel=Next"},
                         {"LINK", "<3>; rel=next; type=a, <4>; rel=next; type=b"}});
  EXPECT_EQ(findLink(response, "next")->uri, "http://h/3");
  EXPECT_EQ(findLink(response, "next prev")->uri, "http://h/1");
  EXPECT_EQ(findLink(response, {{"type", "b"}, {"rel", "next"}})->uri, "http://h/4");
  EXPECT_EQ(findLink(response, Dictionary<std::string>())->uri, "http://h/1");
  EXPECT_FALSE(findLink(response, "last"));
  EXPECT_FALSE(findLink(responseFrom(url, {}), "next"));
  EXPECT_FALSE(findLink(responseFrom(url, {}), Dictionary<std::string>()));
  EXPECT_THAT(links(responseFrom(url, {})), IsEmpty());
}

TEST(HttpLinkDeathTest, ASingleQuoteAsValueStopsTheProgram) {
  EXPECT_DEATH(Link::fromHeader("<u>; rel=\""),
               "^fatal error: Can't form Range with end < start\n$");
  EXPECT_DEATH(trim({'|', '|'})("|"), "Can't form Range");
}

}  // namespace
}  // namespace orivanta
