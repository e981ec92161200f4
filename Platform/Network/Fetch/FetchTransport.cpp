// The adapter that uses the browser's fetch and, for blocking requests, XMLHttpRequest.
#include <memory>
#include <optional>
#include <utility>

#include "Platform/Network/BuiltInTransport.hpp"
#include "Platform/Network/Fetch/Transfers.hpp"

namespace orivanta::network {

namespace {

class FetchTransport : public UrlTransport {
 public:
  void start(UrlRequest request, Completion completed) override {
    Transfers::shared().start(std::move(request), std::move(completed));
  }
};

}  // namespace

std::shared_ptr<UrlTransport> builtInTransport() {
  static const auto& instance = *new auto(std::make_shared<FetchTransport>());
  return instance;
}

// Another transport must respond before `start` returns, since nothing else runs meanwhile.
UrlResult awaitAnswer(UrlTransport& transport, UrlRequest request) {
  if (&transport == builtInTransport().get()) return Transfers::shared().load(std::move(request));
  const auto given = std::make_shared<std::optional<UrlResult>>();
  transport.start(std::move(request), [given](UrlResult result) { *given = std::move(result); });
  if (*given) return *std::move(*given);
  return foundation::failure("browser", 1, "a page cannot wait for this transport");
}

// The browser has decoded the body.
foundation::Result<void> decodeBody(UrlAnswer& /*answer*/) { return {}; }

}  // namespace orivanta::network
