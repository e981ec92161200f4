#include "Platform/Network/AwaitedRequests.hpp"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

#include "Platform/Network/ContentDecoding.hpp"

namespace orivanta::network {

struct AwaitedRequests::State {
  std::mutex mutex;
  std::condition_variable changed;
  bool isCancelled = false;
};

AwaitedRequests::AwaitedRequests(TransferRules rules, std::size_t requestBytes)
    : rules_(std::move(rules)), requestBytes_(requestBytes), state_(std::make_shared<State>()) {}

UrlResult AwaitedRequests::get(const foundation::Url& url, HeaderFields headerFields) {
  const auto answer = std::make_shared<std::optional<UrlResult>>();
  TransferRules rules = rules_;
  if (requestBytes_ > 0) rules.budget = std::make_shared<foundation::MemoryBudget>(requestBytes_);
  const auto transfer = defaultTransport().start({url, std::move(headerFields), std::move(rules)},
                                                 [state = state_, answer](UrlResult result) {
                                                   const std::lock_guard lock(state->mutex);
                                                   *answer = std::move(result);
                                                   state->changed.notify_all();
                                                 });
  std::unique_lock lock(state_->mutex);
  state_->changed.wait(lock, [&] { return answer->has_value() || state_->isCancelled; });
  if (!*answer) {
    lock.unlock();
    transfer->cancel();
    return foundation::failure("http", ECANCELED, "the request was canceled");
  }
  UrlResult result = *std::move(*answer);
  lock.unlock();
  if (!result) return result;
  try {
    if (auto decoded = decodeBody(*result); !decoded) return foundation::failure(decoded.error());
  } catch (const std::bad_alloc& failure) {
    return foundation::failure(foundation::memoryError(failure));
  }
  return result;
}

void AwaitedRequests::cancel() {
  const std::lock_guard lock(state_->mutex);
  state_->isCancelled = true;
  state_->changed.notify_all();
}

}  // namespace orivanta::network
