// Reads two lines, a base URL and a reference: parses them, splits them, resolves the reference and
// adds a query.
#include <string_view>
#include <vector>

#include "Fuzz/Fuzzer.hpp"
#include "Platform/Foundation/Url.hpp"

namespace orivanta::foundation {
namespace {

void takeApart(const Url& url) {
  ORIVANTA_REQUIRE(Url::parse(url.absoluteString()) == url);
  ORIVANTA_REQUIRE(url.isAbsolute() == !url.scheme().empty());
  url.host();
  url.path();
  url.query();
}

void checkUrls(std::string_view text) {
  std::string_view reference = text;
  const auto base = Url::parse(fuzz::takeUpTo("\n", reference));
  if (!base) return;
  takeApart(*base);
  const std::vector<std::pair<std::string, std::string>> items{{std::string(reference), "a b"}};
  takeApart(base->withQueryItems(items));
  ORIVANTA_REQUIRE(base->withQueryItems({}).query().empty());
  const auto resolved = Url::parse(reference, *base);
  ORIVANTA_REQUIRE(!resolved || Url::parse(reference));
  if (!resolved) return;
  takeApart(*resolved);
  ORIVANTA_REQUIRE(!base->isAbsolute() || resolved->isAbsolute());
}

}  // namespace
}  // namespace orivanta::foundation

ORIVANTA_FUZZER(Url, orivanta::foundation::checkUrls)
