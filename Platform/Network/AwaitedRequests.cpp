#include "Platform/Network/AwaitedRequests.hpp"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

#include "Platform/Network/ContentDecoding.hpp"
#include "Platform/Network/DefaultTransport.hpp"

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

AwaitedRequests::AwaitedRequests(TransferOptions options, std::size_t requestBytes)
    : options_(std::move(options)), requestBytes_(requestBytes) {}

UrlResult AwaitedRequests::get(const foundation::Url& url, HeaderFields headerFields) const {
  const auto awaited = std::make_shared<Awaited>();
  TransferRules rules = options_.rules;
  if (requestBytes_ > 0) rules.budget = std::make_shared<foundation::MemoryBudget>(requestBytes_);
  const auto registration = options_.cancellation.onCancel([awaited] {
    awaited->give(foundation::failure("http", ECANCELED, "the request was canceled"));
  });
  orDefault(options_.transport)
      ->start({url, std::move(headerFields), std::move(rules), options_.cancellation},
              [awaited](UrlResult result) { awaited->give(std::move(result)); });
  UrlResult result = awaited->take();
  if (!result) return result;
  try {
    if (auto decoded = decodeBody(*result); !decoded) return foundation::failure(decoded.error());
  } catch (const std::bad_alloc& failure) {
    return foundation::failure(foundation::memoryError(failure));
  }
  return result;
}

}  // namespace orivanta::network
