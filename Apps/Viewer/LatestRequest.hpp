// Requests that do not block the main thread, and of which only the latest is answered.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/SerialQueue.hpp"

namespace orivanta::viewer {

/// Passes requests to a worker on a background thread, one after another. Main thread only.
///
/// A worker has the types `Request` and `Answer` and the functions
///
///   void prepare(const foundation::CancellationToken& end);
///   Answer answer(const Request& request, const foundation::CancellationToken& token);
///
/// `prepare` creates what all requests need. It is called before each request and returns
/// immediately if that exists or if `end` is canceled. The answer to a canceled request is not
/// used. A worker may outlive this object for as long as it takes to cancel its work.
template <class Worker>
class LatestRequest {
 public:
  using Request = typename Worker::Request;
  using Answer = typename Worker::Answer;

  /// Called from the main queue once for each request that is neither replaced nor canceled. Not
  /// called after this object is destroyed.
  using Answered = std::function<void(Answer)>;

  LatestRequest(Worker worker, Answered answered)
      : worker_(std::make_shared<Worker>(std::move(worker))),
        answered_(std::make_shared<Answered>([this, tell = std::move(answered)](Answer answer) {
          isBusy_ = false;
          tell(std::move(answer));
        })) {}

  ~LatestRequest() {
    cancel();
    end_.cancel();
  }
  LatestRequest(const LatestRequest&) = delete;
  LatestRequest& operator=(const LatestRequest&) = delete;

  /// Prepares the worker before the first request.
  void prepare() {
    queue_->async([worker = worker_, end = end_.token()] { worker->prepare(end); });
  }

  /// Starts a request, which replaces the current one, if any.
  void start(Request request) {
    cancel();
    request_ = foundation::CancellationSource();
    isBusy_ = true;
    queue_->async([worker = worker_, request = std::move(request), end = end_.token(),
                   token = request_.token(), answered = std::weak_ptr(answered_)] {
      if (token.isCanceled()) return;
      worker->prepare(end);
      auto answer = worker->answer(request, token);
      if (token.isCanceled()) return;
      foundation::mainQueue::async([token, answered, answer = std::move(answer)]() mutable {
        const auto tell = answered.lock();
        if (tell && !token.isCanceled()) (*tell)(std::move(answer));
      });
    });
  }

  /// Cancels the current request, if any.
  void cancel() {
    request_.cancel();
    isBusy_ = false;
  }

  bool isBusy() const { return isBusy_; }

 private:
  const std::shared_ptr<foundation::SerialQueue> queue_ = foundation::SerialQueue::make();
  const std::shared_ptr<Worker> worker_;  // used on the queue
  const std::shared_ptr<Answered> answered_;
  foundation::CancellationSource end_;      // cancels all work
  foundation::CancellationSource request_;  // the latest one
  bool isBusy_ = false;
};

}  // namespace orivanta::viewer
