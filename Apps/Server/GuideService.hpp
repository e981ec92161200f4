// Computes the responses of /1/route on threads of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Apps/Server/Message.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/Guide.hpp"

namespace orivanta::server {

/// Keeps one guide for each venue and language, created on first use; the ones that have not been
/// used for the longest time are dropped. A package that was replaced gets a new guide.
/// Thread-safe.
class GuideService {
 public:
  struct Limits {
    std::size_t threads = 2;
    std::size_t waiting = 64;                                       ///< requests; more are refused
    std::chrono::milliseconds deadline = std::chrono::seconds(10);  ///< for one request
    std::size_t guides = 16;                                        ///< kept at once
  };

  /// A request for a route.
  struct Job {
    std::shared_ptr<const VenuePackage> package;
    guidance::Closures closures;
    Target target;                       ///< with the query
    std::vector<std::string> languages;  ///< in lower case, best first
  };

  GuideService() : GuideService(Limits()) {}
  explicit GuideService(Limits limits);
  ~GuideService() { stop(); }
  GuideService(const GuideService&) = delete;
  GuideService& operator=(const GuideService&) = delete;

  /// Calls `completed` once with the response, on a thread of the service or, if the service is
  /// busy or stopped, on the calling thread. Requests that wait when the service stops are dropped.
  void start(Job job, std::function<void(Response)> completed);

  /// Ends the running computations and joins the threads. Further requests are refused.
  void stop();

 private:
  struct Task {
    Job job;
    std::function<void(Response)> completed;
    std::chrono::steady_clock::time_point deadline;
  };
  struct Known {
    std::shared_ptr<Venue> venue;
    std::shared_ptr<const guidance::Guide> guide;
  };
  struct Entry {
    std::string key;
    std::shared_ptr<std::once_flag> once;
    std::shared_ptr<Known> known;
  };

  void work();
  void watch();
  Response respond(const Job& job, const foundation::CancellationToken& token);
  std::shared_ptr<const Known> known(const Job& job);

  const Limits limits_;
  std::mutex mutex_;  // guards the members below
  std::condition_variable changed_;
  std::deque<Task> waiting_;
  struct Running {
    std::chrono::steady_clock::time_point deadline;
    foundation::CancellationSource source;
  };
  std::list<Running> running_;
  std::list<Entry> guides_;  // the one that was used last comes first
  bool stopped_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace orivanta::server
