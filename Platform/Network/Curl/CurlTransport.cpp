// The HTTP client behind the port: libcurl.
#include <utility>

#include "Platform/Network/Curl/CurlLoop.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

namespace {

class CurlTransport : public UrlTransport {
 public:
  std::shared_ptr<UrlTransfer> start(UrlRequest request,
                                     std::function<void(UrlResult)> completed) override {
    return CurlLoop::shared().start(std::move(request), std::move(completed));
  }
};

}  // namespace

UrlTransport& defaultTransport() {
  static auto& instance = *new CurlTransport;
  return instance;
}

}  // namespace orivanta::network
