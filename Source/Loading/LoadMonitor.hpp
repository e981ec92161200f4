// Monitors one load and reports its progress and its failures.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Source/LoadReport.hpp"
#include "Source/Loading/TextDigest.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// Observes the requests of the load. Processes them on a separate queue and calls the handlers
/// there, or on the executor if there is one. Thread-safe.
///
/// The load is ended early if a page names a next page that was requested before, if a collection
/// has more than 100,000 pages or its pages together are slower than the lowest rate, or if all
/// pages together exceed 1 GiB.
class LoadMonitor : public WebApiObserver,
                    public LoadHandle,
                    public std::enable_shared_from_this<LoadMonitor> {
 public:
  struct Handlers {
    std::function<void(const LoadProgress&)> progressed;
    std::function<void(std::vector<LoadFailure> failures, bool complete)> ended;
    foundation::Executor executor = nullptr;
  };

  /// `endpoint` is the API root, for the failure reasons.
  LoadMonitor(std::string endpoint, std::size_t collections, network::LowestRate lowestRate,
              Handlers handlers);

  /// Reports that nothing has arrived yet. Must be called before the requests start.
  void start();

  /// The token of the requests, canceled when the load is over.
  foundation::CancellationToken cancellation() const { return requests_.token(); }

  /// Cancels the load when the caller's token is canceled. Must be called at most once.
  void cancelWith(const foundation::CancellationToken& token);

  /// Reports that the load has delivered its result.
  void finish();

  /// Reports that the load ended without a result, for this reason.
  void fail(const foundation::Error& reason);

  /// Runs a step unless the load is over. `cancel` waits until the step has ended.
  void unlessOver(const std::function<void()>& step);
  void cancel() override;

  void pageReceived(std::string_view collection, const network::HttpUrlResponse& response,
                    std::size_t bodyBytes) override;
  void collectionEnded(std::string_view collection,
                       const foundation::Result<void>& outcome) override;

 private:
  using Clock = std::chrono::steady_clock;

  // The time and the bytes of a collection since its rate was last checked.
  struct Window {
    Clock::time_point start;
    std::size_t bytes = 0;
  };

  struct Collection {
    std::set<TextDigest> requested;  // URLs of all pages after the first; may be long
    std::string latestUrl;
    Window window;
    LoadFailure failure;  // without a reason if there is no failure
  };

  void onQueue(std::function<void(LoadMonitor&)> step);
  void takePage(const std::string& name, const network::HttpUrlResponse& response,
                std::size_t bodyBytes, Clock::time_point arrival);
  bool isTooSlow(Window& window, std::size_t bodyBytes, Clock::time_point arrival) const;
  void takeEnd(const std::string& name, const foundation::Result<void>& outcome);
  Collection& collectionNamed(const std::string& name);
  void giveUp(Collection& collection, std::string reason);
  void end(bool complete);
  void endRequests();
  void tellProgress();
  void call(std::function<void(const Handlers&)> handler);
  bool isOver() const;

  const std::string endpoint_;
  const network::LowestRate lowestRate_;
  const Clock::time_point start_ = Clock::now();
  const std::shared_ptr<foundation::SerialQueue> queue_;

  // Used only on the queue.
  std::shared_ptr<const Handlers> handlers_;
  LoadProgress progress_;
  std::map<std::string, Collection, std::less<>> collections_;

  mutable std::mutex mutex_;  // guards `over_`; held while a step runs
  bool over_ = false;
  const foundation::CancellationSource requests_;
  foundation::CancellationRegistration callersCancellation_;
  const foundation::CancellationSource calls_;  // canceled only by `cancel`
};

}  // namespace orivanta
