// Waits for responses.
#include <cerrno>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

#include "Platform/Network/BuiltInTransport.hpp"

namespace orivanta::network {

namespace {

class Awaited {
 public:
  void give(UrlResult result) {
    const std::lock_guard lock(mutex_);
    if (!result_) result_ = std::move(result);
    changed_.notify_all();
  }

  UrlResult take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return result_.has_value(); });
    return *std::move(result_);
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<UrlResult> result_;
};

}  // namespace

UrlResult awaitAnswer(UrlTransport& transport, UrlRequest request) {
  const auto awaited = std::make_shared<Awaited>();
  const auto registration = request.cancellation.onCancel([awaited] {
    awaited->give(foundation::failure("http", ECANCELED, "the request was canceled"));
  });
  transport.start(std::move(request),
                  [awaited](UrlResult result) { awaited->give(std::move(result)); });
  return awaited->take();
}

}  // namespace orivanta::network
