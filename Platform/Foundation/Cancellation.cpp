#include "Platform/Foundation/Cancellation.hpp"

#include <atomic>
#include <map>
#include <mutex>
#include <utility>

namespace orivanta::foundation {

struct CancellationState {
  std::atomic<bool> isCanceled = false;
  std::mutex mutex;  // guards the members below
  std::map<std::uint64_t, std::function<void()>> functions;
  std::uint64_t nextNumber = 0;
};

CancellationRegistration& CancellationRegistration::operator=(
    CancellationRegistration&& other) noexcept {
  if (this == &other) return *this;
  remove();
  state_ = std::move(other.state_);
  number_ = other.number_;
  return *this;
}

void CancellationRegistration::remove() {
  const auto state = state_.lock();
  state_.reset();
  if (!state) return;
  std::function<void()> released;  // destroyed after the lock, since it may own any object
  const std::lock_guard lock(state->mutex);
  const auto entry = state->functions.find(number_);
  if (entry == state->functions.end()) return;
  released = std::move(entry->second);
  state->functions.erase(entry);
}

bool CancellationToken::isCanceled() const { return state_ && state_->isCanceled; }

CancellationRegistration CancellationToken::onCancel(std::function<void()> function) const {
  CancellationRegistration registration;
  if (!state_) return registration;
  {
    const std::lock_guard lock(state_->mutex);
    if (!state_->isCanceled) {
      registration.state_ = state_;
      registration.number_ = state_->nextNumber++;
      state_->functions.emplace(registration.number_, std::move(function));
      return registration;
    }
  }
  function();
  return registration;
}

CancellationSource::CancellationSource() { token_.state_ = std::make_shared<CancellationState>(); }

void CancellationSource::cancel() const {
  CancellationState& state = *token_.state_;
  std::unique_lock lock(state.mutex);
  state.isCanceled = true;
  while (!state.functions.empty()) {
    const auto function = state.functions.extract(state.functions.begin());
    lock.unlock();
    function.mapped()();
    lock.lock();
  }
}

}  // namespace orivanta::foundation
