#include "Apps/Command/Session.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Platform/Foundation/Diagnostics.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

void showProgress(const LoadProgress& progress) {
  ProgressLine::standardError().show(
      fmt::format("Loading: {} of {} collections, {} pages, {:.1f} MB", progress.collectionsDone,
                  progress.collections, progress.pages, static_cast<double>(progress.bytes) / 1e6),
      ProgressLine::Clock::now());
}

std::shared_ptr<Venue> venueNamed(const std::vector<std::shared_ptr<Venue>>& venues,
                                  const std::string& slug) {
  const auto found = std::find_if(venues.begin(), venues.end(),
                                  [&](const auto& venue) { return venue->slug == slug; });
  if (found != venues.end()) return *found;
  std::vector<std::string> slugs;
  slugs.reserve(venues.size());
  for (const auto& venue : venues) slugs.push_back(*venue->slug);
  const std::string choice =
      slugs.empty() ? "none at all" : fmt::format("{}", fmt::join(slugs, ", "));
  throw CommandError(ExitCode::notFound,
                     fmt::format("no venue \"{}\"; the server has {}", slug, choice));
}

}  // namespace

Session::Session(const ConnectionOptions& options) {
  foundation::setDiagnosticSink([quiet = options.quiet](std::string_view line) {
    if (!quiet) ProgressLine::standardError().note(line);
  });
  ApiSettings settings = resolveSettings(options);
  monitor_ = std::make_shared<LoadMonitor>(*settings.endpoint, showProgress);
  settings.observer = monitor_;
  setApiSettings(std::move(settings));
}

std::vector<std::shared_ptr<Venue>> Session::fetchVenues() {
  auto list = std::make_shared<std::vector<std::shared_ptr<Venue>>>();
  monitor_->begin(1);
  getVenues([list, monitor = monitor_](std::vector<std::shared_ptr<Venue>> venues) {
    *list = std::move(venues);
    monitor->finish();
  });
  endLoad({"venue"});
  return *list;
}

std::shared_ptr<Venue> Session::loadVenue(const std::string& slug, bool accessible,
                                          const std::vector<std::string_view>& needed) {
  auto venue = venueNamed(fetchVenues(), slug);
  monitor_->begin(6);
  getVenue(venue, accessible,
           [monitor = monitor_](const std::shared_ptr<Venue>&) { monitor->finish(); });
  endLoad(needed);
  return venue;
}

void Session::endLoad(const std::vector<std::string_view>& needed) {
  const std::vector<LoadFailure> failures = monitor_->wait();
  ProgressLine::standardError().clear();
  std::string reasons;
  for (const LoadFailure& failure : failures) {
    const auto entry = std::find(needed.begin(), needed.end(), failure.collection);
    if (failure.endless || entry != needed.end())
      reasons += (reasons.empty() ? "" : "\n") + failure.reason;
    else
      complain("warning: " + failure.reason);
  }
  if (!reasons.empty()) throw CommandError(ExitCode::noAnswer, reasons);
}

}  // namespace orivanta::command
