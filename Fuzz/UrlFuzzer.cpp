// Two lines, a base and a reference: parsed, taken apart, resolved and given a query.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Url.hpp"

namespace orivanta::foundation {
namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void takeApart(const Url& url) {
  require(Url::parse(url.absoluteString()) == url);
  require(url.isAbsolute() == !url.scheme().empty());
  url.host();
  url.path();
  url.query();
}

void checkUrls(std::string_view text) {
  const std::string_view baseText = text.substr(0, text.find('\n'));
  const std::string_view reference = text.substr(std::min(text.size(), baseText.size() + 1));
  const auto base = Url::parse(baseText);
  if (!base) return;
  takeApart(*base);
  const std::vector<std::pair<std::string, std::string>> items{{std::string(reference), "a b"}};
  takeApart(base->withQueryItems(items));
  require(base->withQueryItems({}).query().empty());
  const auto resolved = Url::parse(reference, *base);
  require(!resolved || Url::parse(reference));
  if (!resolved) return;
  takeApart(*resolved);
  require(!base->isAbsolute() || resolved->isAbsolute());
}

}  // namespace
}  // namespace orivanta::foundation

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  orivanta::foundation::checkUrls({reinterpret_cast<const char*>(bytes), count});
  return 0;
}
