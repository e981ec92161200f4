#include "Source/Loading/LoadMonitor.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace orivanta {

namespace {

// More than any real venue has; a server that sends more is considered endless.
constexpr std::size_t mostPages = 100'000;
constexpr std::size_t mostBytes = std::size_t{1} << 30U;

std::string meaningOf(int status) {
  switch (status) {
    case 401:
      return ": wrong user name or password";
    case 403:
      return ": this account does not have access";
    case 404:
      return ": not found; is the endpoint correct?";
    case 429:
      return ": too many requests, try again later";
    default:
      return status >= 500 ? ": the server failed to process the request" : "";
  }
}

LoadProblem problemOf(int status) {
  if (status == 401 || status == 403) return LoadProblem::refused;
  return status == 404 ? LoadProblem::notFound : LoadProblem::otherStatus;
}

}  // namespace

LoadMonitor::LoadMonitor(std::string endpoint, std::size_t collections,
                         network::LowestRate lowestRate, Handlers handlers)
    : endpoint_(std::move(endpoint)),
      lowestRate_(lowestRate),
      queue_(foundation::SerialQueue::make()),
      handlers_(std::make_shared<Handlers>(std::move(handlers))),
      progress_{0, collections, 0, 0} {}

void LoadMonitor::start() {
  onQueue([](LoadMonitor& self) { self.tellProgress(); });
}

void LoadMonitor::cancelWith(const foundation::CancellationToken& token) {
  callersCancellation_ = token.onCancel([self = weak_from_this()] {
    if (const auto load = self.lock()) load->cancel();
  });
}

void LoadMonitor::finish() {
  onQueue([](LoadMonitor& self) { self.end(true); });
}

// If a collection exceeded the budget, it has already been reported; otherwise the joins exceeded
// it.
void LoadMonitor::fail(const foundation::Error& reason) {
  onQueue([reason](LoadMonitor& self) {
    const bool isTold = std::any_of(
        self.collections_.begin(), self.collections_.end(),
        [](const auto& entry) { return entry.second.failure.problem == LoadProblem::tooLarge; });
    if (!isTold) {
      LoadFailure& failure = self.collectionNamed("venue").failure;
      failure.problem = LoadProblem::tooLarge;
      failure.reason = fmt::format("the venue from {} cannot be assembled: {}", self.endpoint_,
                                   reason.description);
    }
    self.end(false);
  });
}

void LoadMonitor::unlessOver(const std::function<void()>& step) {
  const std::lock_guard lock(mutex_);
  if (!over_) step();
}

void LoadMonitor::cancel() {
  calls_.cancel();
  endRequests();
}

// Releases the handlers because one may own the handle to the load.
void LoadMonitor::endRequests() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
  }
  requests_.cancel();
  queue_->async([self = shared_from_this()] { self->handlers_ = nullptr; });
}

void LoadMonitor::pageReceived(std::string_view name, const network::HttpUrlResponse& response,
                               std::size_t bodyBytes) {
  onQueue([name = std::string(name), response, bodyBytes, now = Clock::now()](LoadMonitor& self) {
    self.takePage(name, response, bodyBytes, now);
  });
}

void LoadMonitor::collectionEnded(std::string_view name, const foundation::Result<void>& outcome) {
  onQueue([name = std::string(name), outcome](LoadMonitor& self) { self.takeEnd(name, outcome); });
}

void LoadMonitor::onQueue(std::function<void(LoadMonitor&)> step) {
  queue_->async([self = shared_from_this(), step = std::move(step)] {
    if (!self->isOver()) step(*self);
  });
}

void LoadMonitor::takePage(const std::string& name, const network::HttpUrlResponse& response,
                           std::size_t bodyBytes, Clock::time_point arrival) {
  Collection& collection = collectionNamed(name);
  if (response.url) collection.latestUrl = response.url->absoluteString();
  ++progress_.pages;
  progress_.bytes += bodyBytes;
  tellProgress();
  const int status = response.statusCode;
  LoadFailure& failure = collection.failure;
  if (failure.reason.empty()) {
    failure.statusCode = status;
    if (status < 200 || status > 299) {
      failure.problem = problemOf(status);
      failure.reason = fmt::format("{} returned HTTP status {}{}", collection.latestUrl, status,
                                   meaningOf(status));
    }
  }
  const auto next = detail::nextPage(response);
  if (next && !collection.requested.insert(textDigest(next->absoluteString())).second)
    giveUp(collection, fmt::format("the page links of {} are circular: they lead back to {}", name,
                                   next->withoutCredentials().absoluteString()));
  else if (next && collection.requested.size() >= mostPages)
    giveUp(collection, fmt::format("{} has more than {} pages", name, mostPages));
  else if (progress_.bytes > mostBytes)
    giveUp(collection, fmt::format("the server sent more than {} MiB", mostBytes >> 20U));
  else if (isTooSlow(collection.window, bodyBytes, arrival) && next)
    giveUp(collection,
           fmt::format("the pages of {} arrive too slowly: less than {} bytes per second", name,
                       lowestRate_.bytesPerSecond));
}

// A collection has one request at a time, so its pages are all the data received in the meantime.
// The transport ends a single request that is too slow.
bool LoadMonitor::isTooSlow(Window& window, std::size_t bodyBytes,
                            Clock::time_point arrival) const {
  window.bytes += bodyBytes;
  const std::chrono::duration<double> time = arrival - window.start;
  if (time < lowestRate_.window) return false;
  const auto bytes = static_cast<double>(std::exchange(window, {arrival, 0}).bytes);
  return bytes < static_cast<double>(lowestRate_.bytesPerSecond) * time.count();
}

void LoadMonitor::takeEnd(const std::string& name, const foundation::Result<void>& outcome) {
  Collection& collection = collectionNamed(name);
  ++progress_.collectionsDone;
  tellProgress();
  LoadFailure& failure = collection.failure;
  if (outcome || !failure.reason.empty()) return;
  const foundation::Error& error = outcome.error();
  const bool isMemory = error.domain == foundation::memoryErrorDomain;
  if (isMemory && error.code == foundation::budgetExceededBefore) return;  // reported elsewhere
  if (error.domain.empty()) {
    failure.problem = LoadProblem::unusable;
    failure.reason =
        fmt::format("{} returned a response that is not valid JSON", collection.latestUrl);
  } else if (isMemory) {
    failure.problem =
        error.code == foundation::budgetExceeded ? LoadProblem::tooLarge : LoadProblem::unusable;
    failure.reason = fmt::format("{}: {}", collection.latestUrl, error.description);
  } else if (network::isInsecureStep(error)) {
    failure.problem = LoadProblem::insecure;
    failure.reason = error.description;
  } else if (network::isIncompleteAnswer(error)) {
    failure.problem = LoadProblem::unusable;
    failure.reason = error.description;
  } else {
    failure.problem = LoadProblem::noAnswer;
    failure.reason = fmt::format("no response from {}{}: {}", endpoint_, name, error.description);
  }
}

LoadMonitor::Collection& LoadMonitor::collectionNamed(const std::string& name) {
  const auto [entry, isNew] = collections_.try_emplace(name);
  if (isNew) {
    entry->second.latestUrl = endpoint_ + name;
    entry->second.failure.collection = name;
    entry->second.window.start = start_;
  }
  return entry->second;
}

void LoadMonitor::giveUp(Collection& collection, std::string reason) {
  collection.failure.problem = LoadProblem::endless;
  collection.failure.reason = std::move(reason);
  end(false);
}

void LoadMonitor::end(bool complete) {
  if (isOver()) return;
  endRequests();
  std::vector<LoadFailure> failures;
  for (auto& [name, collection] : collections_)
    if (!collection.failure.reason.empty()) failures.push_back(std::move(collection.failure));
  call([failures = std::move(failures), complete](const Handlers& handlers) {
    if (handlers.ended) handlers.ended(failures, complete);
  });
}

bool LoadMonitor::isOver() const {
  const std::lock_guard lock(mutex_);
  return over_;
}

void LoadMonitor::tellProgress() {
  call([progress = progress_](const Handlers& handlers) {
    if (handlers.progressed) handlers.progressed(progress);
  });
}

void LoadMonitor::call(std::function<void(const Handlers&)> handler) {
  if (!handlers_) return;
  auto task = [handlers = handlers_, isCanceled = calls_.token(), handler = std::move(handler)] {
    if (!isCanceled.isCanceled()) handler(*handlers);
  };
  if (handlers_->executor)
    handlers_->executor(std::move(task));
  else
    task();
}

}  // namespace orivanta
