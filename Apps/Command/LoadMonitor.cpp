#include "Apps/Command/LoadMonitor.hpp"

#include <fmt/format.h>

#include <utility>

namespace orivanta::command {

namespace {

// Far beyond any venue: a server that sends more does not mean to end.
constexpr std::size_t mostPages = 100'000;
constexpr std::size_t mostBytes = std::size_t{1} << 30U;

std::string meaningOf(int status) {
  switch (status) {
    case 401:
      return ": wrong user name or password";
    case 403:
      return ": this account may not read it";
    case 404:
      return ": the server does not have it; is the endpoint right?";
    case 429:
      return ": too many requests, try again later";
    default:
      return status >= 500 ? ": the server has a problem of its own" : "";
  }
}

std::string refusal(const std::string& url, int status) {
  return fmt::format("{} answered with HTTP status {}{}", url, status, meaningOf(status));
}

}  // namespace

LoadMonitor::LoadMonitor(std::string endpoint, std::function<void(const LoadProgress&)> report)
    : endpoint_(std::move(endpoint)), report_(std::move(report)) {}

void LoadMonitor::begin(std::size_t collections) {
  const std::lock_guard lock(mutex_);
  progress_ = {0, collections, 0, 0};
  collections_.clear();
  running_ = true;
  report();
}

void LoadMonitor::finish() {
  const std::lock_guard lock(mutex_);
  end();
}

std::vector<LoadFailure> LoadMonitor::wait() {
  std::unique_lock lock(mutex_);
  ended_.wait(lock, [this] { return !running_; });
  std::vector<LoadFailure> failures;
  for (const auto& [name, collection] : collections_)
    if (!collection.failure.empty())
      failures.push_back({name, collection.failure, collection.endless, collection.httpStatus});
  return failures;
}

void LoadMonitor::pageReceived(std::string_view name, const network::HttpUrlResponse& response,
                               std::size_t bodyBytes) {
  const std::lock_guard lock(mutex_);
  Collection& collection = collections_[std::string(name)];
  collection.latestUrl =
      response.url ? response.url->absoluteString() : fmt::format("{}{}", endpoint_, name);
  ++progress_.pages;
  progress_.bytes += bodyBytes;
  report();
  const bool refused = response.statusCode < 200 || response.statusCode > 299;
  if (refused && collection.failure.empty()) {
    collection.failure = refusal(collection.latestUrl, response.statusCode);
    collection.httpStatus = response.statusCode;
  }
  const auto next = detail::nextPage(response);
  if (next && !collection.requested.insert(next->absoluteString()).second)
    giveUp(collection, fmt::format("the pages of {} run in a circle, back to {}", name,
                                   next->absoluteString()));
  else if (next && collection.requested.size() >= mostPages)
    giveUp(collection, fmt::format("{} has more than {} pages", name, mostPages));
  else if (progress_.bytes > mostBytes)
    giveUp(collection, fmt::format("the server sent more than {} MiB", mostBytes >> 20U));
}

void LoadMonitor::giveUp(Collection& collection, std::string reason) {
  collection.failure = std::move(reason);
  collection.endless = true;
  end();
}

void LoadMonitor::collectionEnded(std::string_view name,
                                  const std::optional<foundation::Error>& error) {
  const std::lock_guard lock(mutex_);
  Collection& collection = collections_[std::string(name)];
  ++progress_.collectionsDone;
  report();
  if (!error || !collection.failure.empty()) return;
  const bool invalidJson = error->domain.empty();
  if (invalidJson)
    collection.failure =
        fmt::format("{} answered with a body that is no JSON", collection.latestUrl);
  else
    collection.failure =
        fmt::format("no answer from {}{}: {}", endpoint_, name, error->description);
}

void LoadMonitor::end() {
  running_ = false;
  ended_.notify_all();
}

void LoadMonitor::report() {
  if (running_ && report_) report_(progress_);
}

}  // namespace orivanta::command
