// The `UrlTransport` that uses libcurl.
#include <utility>

#include "Platform/Network/BuiltInTransport.hpp"
#include "Platform/Network/Curl/CurlLoop.hpp"

namespace orivanta::network {

namespace {

class CurlTransport : public UrlTransport {
 public:
  void start(UrlRequest request, Completion completed) override {
    CurlLoop::shared().start(std::move(request), std::move(completed));
  }
};

}  // namespace

std::shared_ptr<UrlTransport> builtInTransport() {
  static const auto& instance = *new auto(std::make_shared<CurlTransport>());
  return instance;
}

}  // namespace orivanta::network
