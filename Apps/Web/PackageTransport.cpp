#include "Apps/Web/PackageTransport.hpp"

#include <string_view>
#include <utility>

namespace orivanta::web {

namespace {

std::string lastPartOf(std::string_view url) {
  url = url.substr(0, url.find_first_of("?#"));
  return std::string(url.substr(url.rfind('/') + 1));
}

}  // namespace

void PackageTransport::start(network::UrlRequest request, Completion completed) {
  network::UrlAnswer answer{{request.url, 404, {}}, {}};
  const auto found = texts_.find(lastPartOf(request.url.absoluteString()));
  if (found != texts_.end()) {
    answer.response.statusCode = 200;
    answer.body = std::move(found->second);
    texts_.erase(found);
  }
  completed(std::move(answer));
}

}  // namespace orivanta::web
