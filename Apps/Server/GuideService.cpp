#include "Apps/Server/GuideService.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include "Apps/Planning/PlanJson.hpp"
#include "Apps/Server/RouteQuery.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Venue.hpp"

namespace orivanta::server {

using planning::QueryError;
using Clock = std::chrono::steady_clock;

namespace {

Response lateResponse() { return unavailableResponse("The route could not be computed in time."); }

// Returns the message as a sentence, like the other messages of the server.
Response refusalFor(const QueryError& error) {
  std::string message = error.what();
  if (message.front() >= 'a' && message.front() <= 'z')
    message.front() = static_cast<char>(message.front() - 'a' + 'A');
  if (message.back() != '.') message += '.';
  return errorResponse(error.kind == QueryError::Kind::notFound ? 404 : 400, message);
}

Response jsonResponse(const boost::json::object& body, const std::string& language) {
  Response response;
  response.headers = {{"Content-Type", "application/json"},
                      {"Content-Language", language},
                      {"Cache-Control", "no-cache"},
                      {"Vary", "Accept-Language"}};
  response.text = std::make_shared<const std::string>(text::jsonText(body));
  return response;
}

}  // namespace

GuideService::GuideService(Limits limits) : limits_(limits), guides_(limits.venues) {}

void GuideService::start(Job job, std::function<void(Response)> completed) {
  {
    const std::lock_guard lock(mutex_);
    if (!stopped_ && waiting_.size() < limits_.waiting && hasThreads()) {
      waiting_.push_back({std::move(job), std::move(completed), Clock::now() + limits_.deadline});
      changed_.notify_all();
      return;
    }
  }
  completed(unavailableResponse("Too many routes are being computed."));
}

// Starts the threads that are missing. Returns whether there are enough for a request.
bool GuideService::hasThreads() try {
  if (threads_.empty()) threads_.emplace_back([this] { watch(); });
  while (threads_.size() < limits_.threads + 1) threads_.emplace_back([this] { work(); });
  return true;
} catch (const std::system_error&) {
  return threads_.size() > 1;
}

void GuideService::stop() {
  std::vector<std::thread> threads;
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    waiting_.clear();
    for (const Running& running : running_) running.source.cancel();
    threads.swap(threads_);
    changed_.notify_all();
  }
  for (std::thread& thread : threads) thread.join();
}

// Cancels the computations that have exceeded their deadline.
void GuideService::watch() {
  std::unique_lock lock(mutex_);
  while (!stopped_) {
    auto next = Clock::now() + limits_.deadline;
    for (const Running& running : running_) {
      if (running.deadline <= Clock::now())
        running.source.cancel();
      else
        next = std::min(next, running.deadline);
    }
    changed_.wait_until(lock, next);
  }
}

void GuideService::work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [&] { return stopped_ || !waiting_.empty(); });
    if (stopped_) return;
    Task task = std::move(waiting_.front());
    waiting_.pop_front();
    const auto running = running_.insert(running_.end(), {task.deadline, {}});
    changed_.notify_all();
    lock.unlock();
    std::optional<Response> response;
    try {
      response = responseTo(task, running->source.token());
    } catch (...) {
      response.reset();  // there is no memory even for an error
    }
    lock.lock();
    running_.erase(running);
    if (stopped_) return;
    lock.unlock();
    try {
      if (response) task.completed(std::move(*response));
    } catch (...) {
      response.reset();  // the connection ends the request itself
    }
    task = {};
    lock.lock();
  }
}

Response GuideService::responseTo(const Task& task, const foundation::CancellationToken& token) {
  try {
    if (Clock::now() >= task.deadline) return lateResponse();
    Response response = routeFor(task.job, token);
    if (token.isCanceled()) return lateResponse();
    return response;
  } catch (const QueryError& error) {
    return refusalFor(error);
  } catch (const std::bad_alloc&) {
    return unavailableResponse("The memory does not suffice for this route.");
  } catch (const std::exception&) {
    return errorResponse(500, "The route could not be computed.");
  }
}

Response GuideService::routeFor(const Job& job, const foundation::CancellationToken& token) {
  const planning::PlanQuery query = routeQueryOf(job.target);
  const auto guided = guides_.venue(job.package, job.languages);
  if (!guided->guide)
    throw QueryError(QueryError::Kind::notFound,
                     "the records of the venue cannot be used for routes");
  const guidance::Request request = planning::requestOf(*guided->venue, query, job.closures);
  const guidance::Plan plan = guided->guide->plan(request, token);
  if (token.isCanceled()) return lateResponse();
  const guidance::Narrator narrator(fmt::format("{}", fmt::join(job.languages, ",")));
  return jsonResponse(planning::planJson(*guided->guide, plan, request, narrator, token),
                      narrator.language());
}

}  // namespace orivanta::server
