#include "Platform/Network/OfflineTransport.hpp"

namespace orivanta::network {

namespace {

class OfflineTransport : public UrlTransport {
 public:
  void start(UrlRequest request, Completion completed) override {
    if (!request.cancellation.isCanceled())
      completed(foundation::failure("offline", 0, "there is no connection"));
  }
};

}  // namespace

std::shared_ptr<UrlTransport> makeOfflineTransport() {
  return std::make_shared<OfflineTransport>();
}

}  // namespace orivanta::network
