#include "Platform/Network/DataOfUrl.hpp"

#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Network/BuiltInTransport.hpp"
#include "Platform/Network/ContentDecoding.hpp"
#include "Platform/Network/DefaultTransport.hpp"

namespace orivanta::network {

namespace {

constexpr std::size_t largestFileBytes = 512U << 20U;

}  // namespace

foundation::Result<std::string> dataOfUrl(const foundation::Url& url,
                                          const TransferOptions& options) {
  if (const auto file = url.filePath()) return foundation::readFile(*file, largestFileBytes);
  return decoded(awaitAnswer(*orDefault(options.transport),
                             {url, {}, options.rules, options.cancellation}))
      .map([](UrlAnswer answer) { return std::move(answer.body); });
}

}  // namespace orivanta::network
