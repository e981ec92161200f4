#include "Apps/Viewer/VenueSource.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

#include "Platform/Foundation/Languages.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Venue.hpp"
#include "Source/WebApi.hpp"

namespace orivanta::viewer {

using command::LoadFailure;

namespace mainQueue = foundation::mainQueue;

// What a request needs until its answer is there, on whatever thread.
struct VenueSource::Request {
  std::shared_ptr<command::LoadMonitor> monitor;
  std::optional<WebApiSession> session;
  Handlers handlers;
  std::weak_ptr<bool> alive;  // the source
  std::function<void()> done;
};

namespace {

// With a capital letter and a full stop.
std::string sentence(std::string text) {
  if (!text.starts_with("http") && !text.empty() && text.front() >= 'a' && text.front() <= 'z')
    text.front() = static_cast<char>(text.front() - 'a' + 'A');
  return text + '.';
}

Problem problemOf(const LoadFailure& failure, const std::string& reasons) {
  if (failure.httpStatus == 401 || failure.httpStatus == 403)
    return {"The server refuses these credentials", reasons};
  if (failure.httpStatus != 0 || failure.endless)
    return {"The server does not give the venue", reasons};
  return {"The server does not answer", reasons};
}

std::optional<Problem> problemIn(const std::vector<LoadFailure>& failures,
                                 const std::vector<std::string_view>& needed) {
  std::optional<LoadFailure> first;
  std::string reasons;
  for (const LoadFailure& failure : failures) {
    const bool counts = failure.endless ||
                        std::find(needed.begin(), needed.end(), failure.collection) != needed.end();
    if (!counts) continue;
    if (!first) {
      first = failure;
      reasons = sentence(failure.reason);
    }
  }
  return first ? std::optional(problemOf(*first, reasons)) : std::nullopt;
}

}  // namespace

VenueSource::VenueSource(ApiSettings settings) : settings_(std::move(settings)) {}

std::shared_ptr<VenueSource::Request> VenueSource::begin(Handlers handlers,
                                                         std::size_t collections) {
  auto request = std::make_shared<Request>();
  request->handlers = std::move(handlers);
  request->alive = alive_;
  request->monitor = std::make_shared<command::LoadMonitor>(
      *settings_.endpoint,
      [alive = std::weak_ptr(alive_),
       progressed = request->handlers.progressed](const command::LoadProgress& progress) {
        mainQueue::async([alive, progressed, progress] {
          if (alive.lock() && progressed) progressed(progress);
        });
      });
  request->session.emplace(*settings_.endpoint, *settings_.username, *settings_.password,
                           fmt::format("{}", fmt::join(foundation::preferredLanguages(), ", ")),
                           request->monitor);
  request->monitor->begin(collections);
  return request;
}

// Waits on a thread of its own, since a server may take its time.
void VenueSource::await(std::shared_ptr<Request> request, std::vector<std::string_view> needed) {
  std::thread([request = std::move(request), needed = std::move(needed)]() mutable {
    auto problem = problemIn(request->monitor->wait(), needed);
    mainQueue::async([request = std::move(request), problem = std::move(problem)] {
      if (!request->alive.lock()) return;
      if (problem)
        request->handlers.failed(*problem);
      else
        request->done();
    });
  }).detach();
}

void VenueSource::fetchVenues(Handlers handlers, std::function<void(Venues)> done) {
  auto request = begin(std::move(handlers), 1);
  auto list = std::make_shared<Venues>();
  request->done = [list, done = std::move(done), failed = request->handlers.failed,
                   endpoint = *settings_.endpoint] {
    if (list->empty())
      failed({"No venues", "The server at " + endpoint + " has no venue for this account."});
    else
      done(*list);
  };
  request->session->venues([list, monitor = request->monitor](const Collection<Venue>& venues) {
    for (const auto& [id, venue] : venues) list->push_back(venue);
    monitor->finish();
  });
  await(std::move(request), {"venue"});
}

void VenueSource::loadVenue(const std::shared_ptr<Venue>& venue, Handlers handlers,
                            std::function<void()> done) {
  auto request = begin(std::move(handlers), 6);
  request->done = [venue, done = std::move(done), failed = request->handlers.failed] {
    if (venue->maps->empty())
      failed({"This venue is empty", venue->name.value_or("") + " has no floors to show yet."});
    else
      done();
  };
  orivanta::loadVenue(*request->session, venue, /*accessible=*/false,
                      [monitor = request->monitor](const auto&) { monitor->finish(); });
  await(std::move(request), {"location", "map", "node", "polygon"});
}

}  // namespace orivanta::viewer
