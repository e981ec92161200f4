// A response's Link fields: the URL that answered on the first line, one field value on each other.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Source/HttpLink.hpp"

namespace orivanta {
namespace {

std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(text.size(), line.size() + 1));
  return line;
}

// A parameter of a single quote stops the program, as promised.
bool stopsTheProgram(std::string_view header) {
  for (const std::string& link : separateBy(",")(header)) {
    const auto [uri, parameters] = takeFirst(separateBy(";")(link));
    for (const std::string& parameter : parameters)
      if (split("=")(parameter).second == "\"") return true;
  }
  return false;
}

void require(bool condition) {
  if (!condition) std::abort();
}

void readLinks(std::string_view text) {
  network::HttpUrlResponse response;
  response.url = foundation::Url::parse(takeLine(text));
  while (!text.empty()) response.headerFields.emplace_back("Link", takeLine(text));
  if (const auto header = response.headerField("link"); header && stopsTheProgram(*header)) return;
  const std::vector<Link> found = links(response);
  for (const Link& link : found) {
    require(link == link && std::hash<Link>()(link) == std::hash<Link>()(Link(link.uri)));
    link.html();
    link.header();
  }
  const auto next = findLink(response, "next");
  require(!next || next->relationType() == "next");
}

}  // namespace
}  // namespace orivanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  orivanta::readLinks({reinterpret_cast<const char*>(bytes), count});
  return 0;
}
