#include "Platform/Network/DataOfUrl.hpp"

#include <future>
#include <memory>
#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

namespace {

constexpr std::size_t largestFileBytes = 512U << 20U;

}  // namespace

std::optional<std::string> dataOfUrl(const foundation::Url& url) {
  if (const auto file = url.filePath()) return foundation::readFile(*file, largestFileBytes);
  const auto promise = std::make_shared<std::promise<UrlResult>>();
  defaultTransport().start({url, {}},
                           [promise](UrlResult result) { promise->set_value(std::move(result)); });
  UrlResult result = promise->get_future().get();
  if (result.error || defaultTransport().decodeBody(result)) return std::nullopt;
  return std::move(result.body);
}

}  // namespace orivanta::network
