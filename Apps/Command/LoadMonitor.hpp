// What the requests of a load come to: how far they are, which of them failed and why.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "Source/WebApi.hpp"

namespace orivanta::command {

struct LoadProgress {
  std::size_t collectionsDone = 0;
  std::size_t collections = 0;
  std::size_t pages = 0;
  std::size_t bytes = 0;
};

/// A collection that counts as empty although the server may have something in it.
struct LoadFailure {
  std::string collection;  ///< the resource's name in the API
  std::string reason;      ///< a sentence with the URL, without a full stop
  bool endless = false;    ///< the load has been given up: its result will not come
  int httpStatus = 0;      ///< with which the server refused; 0 when it did not
};

/// One load at a time, each between `begin` and `wait`. Any thread.
class LoadMonitor : public WebApiObserver {
 public:
  /// `report` is called with every page, one call at a time, until the wait for the load ends.
  LoadMonitor(std::string endpoint, std::function<void(const LoadProgress&)> report);

  void begin(std::size_t collections);

  /// The load has delivered its result.
  void finish();

  /// Blocks until `finish`, or until the load is given up: when a page names a next one that was
  /// asked for before, when a collection has more than 100,000 pages, or when all pages together
  /// have more than 1 GiB. At most one failure for each collection.
  std::vector<LoadFailure> wait();

  void pageReceived(std::string_view collection, const network::HttpUrlResponse& response,
                    std::size_t bodyBytes) override;
  void collectionEnded(std::string_view collection,
                       const std::optional<foundation::Error>& error) override;

 private:
  struct Collection {
    std::unordered_set<std::string> requested;  // the URLs of the pages behind the first
    std::string latestUrl;
    std::string failure;  // empty while all is well
    bool endless = false;
    int httpStatus = 0;  // of the refusal
  };

  void giveUp(Collection& collection, std::string reason);
  void end();
  void report();

  const std::string endpoint_;
  const std::function<void(const LoadProgress&)> report_;

  std::mutex mutex_;  // guards everything below
  std::condition_variable ended_;
  bool running_ = false;
  LoadProgress progress_;
  std::map<std::string, Collection, std::less<>> collections_;
};

}  // namespace orivanta::command
