#include "Platform/Network/DefaultTransport.hpp"

#include <mutex>
#include <utility>

#include "Platform/Network/BuiltInTransport.hpp"

namespace orivanta::network {

namespace {

// Never destroyed, because requests may still run when the process ends.
struct DefaultTransport {
  std::mutex mutex;
  std::shared_ptr<UrlTransport> transport;
};

DefaultTransport& chosen() {
  static auto& instance = *new DefaultTransport;
  return instance;
}

}  // namespace

std::shared_ptr<UrlTransport> defaultTransport() {
  const std::lock_guard lock(chosen().mutex);
  if (!chosen().transport) chosen().transport = builtInTransport();
  return chosen().transport;
}

void setDefaultTransport(std::shared_ptr<UrlTransport> transport) {
  const std::lock_guard lock(chosen().mutex);
  chosen().transport.swap(transport);
}

std::shared_ptr<UrlTransport> orDefault(std::shared_ptr<UrlTransport> transport) {
  return transport ? std::move(transport) : defaultTransport();
}

}  // namespace orivanta::network
