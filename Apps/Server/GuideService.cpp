#include "Apps/Server/GuideService.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <boost/json/serialize.hpp>
#include <charconv>
#include <new>
#include <utility>

#include "Apps/Planning/PlanJson.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Server/PackageError.hpp"
#include "Apps/Server/PackageVenue.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Venue.hpp"

namespace orivanta::server {

using planning::PlanQuery;
using planning::QueryError;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::size_t longestValue = 1000;  // of a query parameter, in bytes
constexpr std::size_t mostClosed = 1000;

std::vector<std::string> valuesOf(const Target& target, std::string_view name) {
  std::vector<std::string> values;
  for (const auto& [key, value] : target.query)
    if (key == name) values.push_back(value);
  return values;
}

template <class Number>
Number numberOf(std::string_view name, const std::string& text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    throw QueryError(QueryError::Kind::invalid, fmt::format("{} must be a number.", name));
  return number;
}

bool flagOf(const Target& target, std::string_view name) {
  const auto value = target.queryValue(name);
  if (!value || *value == "0" || *value == "false") return false;
  if (*value == "1" || *value == "true" || value->empty()) return true;
  throw QueryError(QueryError::Kind::invalid, fmt::format("{} must be 0 or 1.", name));
}

PlanQuery queryOf(const Target& target) {
  for (const auto& [name, value] : target.query)
    if (value.size() > longestValue)
      throw QueryError(QueryError::Kind::invalid, "A query parameter is too long.");
  PlanQuery query;
  query.from = valuesOf(target, "from");
  query.to = valuesOf(target, "to");
  query.via = valuesOf(target, "via");
  query.closed = valuesOf(target, "closed");
  if (query.closed.size() > mostClosed || query.from.size() > mostClosed ||
      query.to.size() > mostClosed)
    throw QueryError(QueryError::Kind::invalid, "The query has too many parameters.");
  query.nearest = target.queryValue("nearest");
  query.bestOrder = flagOf(target, "best-order");
  query.avoidOutdoors = flagOf(target, "avoid-outdoors");
  query.at = target.queryValue("at");
  if (auto profile = target.queryValue("profile")) query.profile = std::move(*profile);
  if (const auto speed = target.queryValue("speed"))
    query.walkingSpeed = numberOf<double>("speed", *speed);
  if (const auto count = target.queryValue("alternatives"))
    query.alternatives = numberOf<int>("alternatives", *count);
  return query;
}

unsigned statusOf(QueryError::Kind kind) { return kind == QueryError::Kind::notFound ? 404 : 400; }

Response jsonResponse(unsigned status, const boost::json::object& body,
                      const std::string& language) {
  Response response;
  response.status = status;
  response.headers = {{"Content-Type", "application/json"},
                      {"Content-Language", language},
                      {"Cache-Control", "no-cache"},
                      {"Vary", "Accept-Language"}};
  response.text = std::make_shared<const std::string>(boost::json::serialize(body));
  return response;
}

}  // namespace

GuideService::GuideService(Limits limits) : limits_(limits) {}

void GuideService::start(Job job, std::function<void(Response)> completed) {
  {
    const std::lock_guard lock(mutex_);
    if (!stopped_ && waiting_.size() < limits_.waiting) {
      if (threads_.empty()) {
        threads_.emplace_back([this] { watch(); });
        for (std::size_t i = 0; i < limits_.threads; ++i) threads_.emplace_back([this] { work(); });
      }
      waiting_.push_back({std::move(job), std::move(completed), Clock::now() + limits_.deadline});
      changed_.notify_all();
      return;
    }
  }
  completed(unavailableResponse("Too many routes are being computed."));
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
    const auto token = running->source.token();
    changed_.notify_all();
    lock.unlock();
    Response response;
    try {
      response = Clock::now() < task.deadline
                     ? respond(task.job, token)
                     : unavailableResponse("The route could not be computed in time.");
      if (token.isCanceled())
        response = unavailableResponse("The route could not be computed in time.");
    } catch (const QueryError& error) {
      response = errorResponse(statusOf(error.kind), error.what());
    } catch (const std::bad_alloc&) {
      response = unavailableResponse("The memory does not suffice for this route.");
    } catch (const std::exception&) {
      response = errorResponse(500, "The route could not be computed.");
    }
    lock.lock();
    running_.erase(running);
    if (stopped_) return;
    lock.unlock();
    task.completed(std::move(response));
    task = {};
    lock.lock();
  }
}

Response GuideService::respond(const Job& job, const foundation::CancellationToken& token) {
  const PlanQuery query = queryOf(job.target);
  const std::shared_ptr<const Known> venue = known(job);
  const guidance::Request request = planning::requestOf(*venue->venue, query, job.closures);
  const guidance::Plan plan = venue->guide->plan(request, token);
  const guidance::Narrator narrator(fmt::format("{}", fmt::join(job.languages, ",")));
  return jsonResponse(200, planning::planJson(*venue->guide, plan, request, narrator),
                      narrator.language());
}

// Two threads that need the same guide create it once.
std::shared_ptr<const GuideService::Known> GuideService::known(const Job& job) {
  const std::string key = fmt::format("{} {}", job.package->number, fmt::join(job.languages, ","));
  std::unique_lock lock(mutex_);
  auto entry = std::find_if(guides_.begin(), guides_.end(),
                            [&](const Entry& known) { return known.key == key; });
  if (entry == guides_.end()) {
    guides_.push_front({key, std::make_shared<std::once_flag>(), std::make_shared<Known>()});
    if (guides_.size() > limits_.guides) guides_.pop_back();
  } else {
    guides_.splice(guides_.begin(), guides_, entry);
  }
  const auto once = guides_.front().once;
  const auto known = guides_.front().known;
  lock.unlock();
  std::call_once(*once, [&] {
    known->venue = loadPackage(job.package, job.languages);
    known->guide = guidance::Guide::make(*known->venue);
    if (!known->guide) throw PackageError("the venue has no guide");
  });
  return known;
}

}  // namespace orivanta::server
