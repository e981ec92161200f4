// Parses a response's Link headers. The first line is the URL of the response, the others are
// header values.
#include <string_view>

#include "Fuzz/Fuzzer.hpp"
#include "Fuzz/StoppingLinks.hpp"
#include "Source/HttpLink.hpp"

namespace orivanta {
namespace {

void readLinks(std::string_view text) {
  network::HttpUrlResponse response;
  response.url = foundation::Url::parse(fuzz::takeUpTo("\n", text));
  while (!text.empty()) response.headerFields.emplace_back("Link", fuzz::takeUpTo("\n", text));
  if (fuzz::linksStopTheProgram(response)) return;
  const std::vector<Link> found = links(response);
  for (const Link& link : found) {
    ORIVANTA_REQUIRE(link == link && std::hash<Link>()(link) == std::hash<Link>()(Link(link.uri)));
    link.html();
    link.header();
  }
  const auto next = findLink(response, "next");
  ORIVANTA_REQUIRE(!next || next->relationType() == "next");
}

}  // namespace
}  // namespace orivanta

ORIVANTA_FUZZER(LinkHeader, orivanta::readLinks)
