// The `UrlTransport` with libcurl for transfers and zlib for bodies.
#include <strings.h>

#include <utility>

#include "Platform/Network/Curl/CurlLoop.hpp"
#include "Platform/Network/Curl/Inflate.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

namespace {

constexpr std::size_t largestDecodedBytes = 512U << 20U;

class CurlTransport : public UrlTransport {
 public:
  std::shared_ptr<UrlTransfer> start(UrlRequest request,
                                     std::function<void(UrlResult)> completed) override {
    return CurlLoop::shared().start(std::move(request), std::move(completed));
  }

  std::optional<foundation::Error> decodeBody(UrlResult& result) override {
    const auto encoding = result.response.headerField("Content-Encoding");
    if (result.body.empty() || !encoding || strcasecmp(encoding->c_str(), "identity") == 0)
      return std::nullopt;
    if (strcasecmp(encoding->c_str(), "gzip") != 0 && strcasecmp(encoding->c_str(), "x-gzip") != 0)
      return foundation::Error{"http", 1, "unknown content encoding \"" + *encoding + "\""};
    auto bytes = gunzipped(result.body, largestDecodedBytes, result.share.get());
    if (!bytes) return foundation::Error{"http", 2, "damaged or oversized compressed body"};
    result.body = std::move(*bytes);
    return std::nullopt;
  }
};

}  // namespace

UrlTransport& defaultTransport() {
  static auto& instance = *new CurlTransport;
  return instance;
}

}  // namespace orivanta::network
