// Computes the responses of /1/route on threads of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Apps/Server/GuideStore.hpp"
#include "Apps/Server/Message.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Closures.hpp"

namespace orivanta::server {

/// Computes routes in the order of the requests. The threads are started with the first request.
/// Thread-safe.
class GuideService {
 public:
  struct Limits {
    std::size_t threads = 2;   ///< that compute; one more watches the deadlines
    std::size_t waiting = 64;  ///< requests that wait for a thread; more are refused
    std::chrono::milliseconds deadline = std::chrono::seconds(10);  ///< from `start` to the end
    std::size_t venues = 16;                                        ///< that are kept in memory
  };

  /// A request for a route.
  struct Job {
    std::shared_ptr<const VenuePackage> package;
    guidance::Closures closures;         ///< of the operator
    Target target;                       ///< with the query
    std::vector<std::string> languages;  ///< in lower case, best first
  };

  GuideService() : GuideService(Limits()) {}
  explicit GuideService(Limits limits);
  ~GuideService() { stop(); }
  GuideService(const GuideService&) = delete;
  GuideService& operator=(const GuideService&) = delete;

  /// Calls `completed` once with the response: on a thread of the service or, if the service is
  /// busy or stopped, on the calling thread. Requests that wait when the service stops are dropped.
  void start(Job job, std::function<void(Response)> completed);

  /// Cancels the running computations and joins the threads. Further requests are refused.
  void stop();

 private:
  using Time = std::chrono::steady_clock::time_point;
  struct Task {
    Job job;
    std::function<void(Response)> completed;
    Time deadline;
  };
  struct Running {
    Time deadline;
    foundation::CancellationSource source;
  };

  bool hasThreads();
  void work();
  void watch();
  Response responseTo(const Task& task, const foundation::CancellationToken& token);
  Response routeFor(const Job& job, const foundation::CancellationToken& token);

  const Limits limits_;
  GuideStore guides_;
  std::mutex mutex_;  // guards the members below
  std::condition_variable changed_;
  std::deque<Task> waiting_;
  std::list<Running> running_;
  bool stopped_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace orivanta::server
