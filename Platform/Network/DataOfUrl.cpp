#include "Platform/Network/DataOfUrl.hpp"

#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Network/AwaitedRequests.hpp"

namespace orivanta::network {

namespace {

constexpr std::size_t largestFileBytes = 512U << 20U;

}  // namespace

std::optional<std::string> dataOfUrl(const foundation::Url& url) {
  if (const auto file = url.filePath()) return foundation::readFile(*file, largestFileBytes);
  UrlResult result = AwaitedRequests().get(url);
  if (result.error) return std::nullopt;
  return std::move(result.body);
}

}  // namespace orivanta::network
