#include "Platform/Network/UrlSession.hpp"

#include <new>
#include <unordered_set>
#include <utility>

#include "Platform/Network/ContentDecoding.hpp"
#include "Platform/Network/DefaultTransport.hpp"

namespace orivanta::network {

namespace {

// Keeps valid sessions alive. Never destroyed, because sessions may still exist after `main`
// returns.
struct ValidSessions {
  std::mutex mutex;
  std::unordered_set<std::shared_ptr<UrlSession>> sessions;
};

ValidSessions& validSessions() {
  static auto& instance = *new ValidSessions;
  return instance;
}

}  // namespace

std::shared_ptr<UrlSession> UrlSession::make(UrlSessionConfiguration configuration,
                                             std::shared_ptr<UrlSessionDelegate> delegate) {
  std::shared_ptr<UrlSession> session(
      new UrlSession(std::move(configuration), std::move(delegate)));
  {
    const std::lock_guard lock(validSessions().mutex);
    validSessions().sessions.insert(session);
  }
  session->registration_ =
      session->configuration_.cancellation.onCancel([weak = std::weak_ptr(session)] {
        if (const auto self = weak.lock()) self->invalidateAndCancel();
      });
  return session;
}

UrlSession::UrlSession(UrlSessionConfiguration configuration,
                       std::shared_ptr<UrlSessionDelegate> delegate)
    : configuration_(std::move(configuration)),
      queue_(foundation::SerialQueue::make()),
      delegate_(std::move(delegate)),
      delivered_(configuration_.rules.budget) {}

void UrlSession::startDataTask(const foundation::Url& url) {
  if (!isValid()) return;
  orDefault(configuration_.transport)
      ->start({url, configuration_.additionalHeaders, configuration_.rules, requests_.token()},
              [self = shared_from_this()](UrlResult result) {
                self->queue_->async([self, result = std::move(result)]() mutable {
                  self->deliver(std::move(result));
                });
              });
}

void UrlSession::deliver(UrlResult result) {
  // The delegate is fetched before each call, since it may invalidate the session during a call.
  if (!delegate()) return;
  try {
    result = decoded(std::move(result));
    if (result && !result->body.empty())
      if (const auto receiver = delegate()) {
        delivered_.growTo(result->body.size());
        receiver->didReceiveData(result->body);
      }
  } catch (const std::bad_alloc& failure) {
    result = foundation::failure(foundation::memoryError(failure));
  }
  if (result) {
    std::string().swap(result->body);
    result->share.reset();
  }
  const auto receiver = delegate();
  if (!receiver) return;
  if (result)
    receiver->didComplete(result->response, std::nullopt);
  else
    receiver->didComplete({}, result.error());
}

void UrlSession::invalidateAndCancel() {
  std::shared_ptr<UrlSession> self;
  std::shared_ptr<UrlSessionDelegate> released;
  {
    const std::lock_guard lock(mutex_);
    released.swap(delegate_);
  }
  requests_.cancel();
  if (released)
    queue_->async([delegate = std::move(released)] { delegate->didBecomeInvalid(std::nullopt); });
  const std::lock_guard lock(validSessions().mutex);
  const auto entry = validSessions().sessions.find(shared_from_this());
  if (entry == validSessions().sessions.end()) return;
  self = *entry;  // released outside the lock, since it may be the last reference to the session
  validSessions().sessions.erase(entry);
}

bool UrlSession::isValid() const { return delegate() != nullptr; }

std::shared_ptr<UrlSessionDelegate> UrlSession::delegate() const {
  const std::lock_guard lock(mutex_);
  return delegate_;
}

}  // namespace orivanta::network
