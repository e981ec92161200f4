#include "Apps/Command/Session.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <future>
#include <utility>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ProgressLine.hpp"
#include "Apps/Command/Suggestion.hpp"
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
  const std::string choice = slugs.empty() ? "none" : fmt::format("{}", fmt::join(slugs, ", "));
  throw CommandError(ExitCode::notFound, fmt::format("no venue \"{}\"; the server has {}.{}", slug,
                                                     choice, didYouMean(slug, slugs)));
}

// Calls `start` with handlers and waits until the load that it starts has ended.
template <class Report, class Start>
Report reportOf(const Start& start) {
  const auto promise = std::make_shared<std::promise<Report>>();
  start(LoadHandlers<Report>{showProgress,
                             [promise](Report report) { promise->set_value(std::move(report)); }});
  Report report = promise->get_future().get();
  ProgressLine::standardError().clear();
  return report;
}

void check(const std::vector<LoadFailure>& failures, const std::vector<std::string_view>& needed) {
  std::string reasons;
  for (const LoadFailure& failure : failures) {
    const auto entry = std::find(needed.begin(), needed.end(), failure.collection);
    if (endsLoad(failure.problem) || entry != needed.end())
      reasons += (reasons.empty() ? "" : "\n") + failure.reason;
    else
      complain("warning: " + failure.reason);
  }
  if (!reasons.empty()) throw CommandError(ExitCode::noAnswer, reasons);
}

}  // namespace

void showDiagnostics(const ConnectionOptions& options) {
  // The lines are meant for developers. On a terminal they would hide the progress.
  const bool quiet = options.quiet || ProgressLine::standardError().isShown();
  foundation::setDiagnosticSink([quiet](std::string_view line) {
    if (!quiet) ProgressLine::standardError().note(line);
  });
}

void finishStoring(const std::shared_ptr<VenueStore>& store) {
  if (!store) return;
  const auto promise = std::make_shared<std::promise<void>>();
  store->whenIdle([promise] { promise->set_value(); });
  promise->get_future().wait();
}

Session::Session(const ConnectionOptions& options) : isOffline_(options.offline) {
  showDiagnostics(options);
  setApiSettings(resolveSettings(options));
}

std::vector<std::shared_ptr<Venue>> Session::fetchVenues() {
  if (isOffline_) {
    auto stored = reportOf<StoredListReport>([](auto handlers) {  //
      loadStoredVenues(APISession(), std::move(handlers));
    });
    if (stored.venues.empty()) throw CommandError(ExitCode::noAnswer, "no venue is stored");
    return std::move(stored.venues);
  }
  auto report = reportOf<VenueListReport>([](auto handlers) {  //
    loadVenuesReporting(APISession(), std::move(handlers));
  });
  finishStoring(APISession().store());
  check(report.failures, {"venue"});
  return std::move(report.venues);
}

std::shared_ptr<Venue> Session::loadVenue(const std::string& slug, bool accessible,
                                          const std::vector<std::string_view>& needed) {
  if (isOffline_) return loadStored(slug, accessible);
  auto venue = venueNamed(fetchVenues(), slug);
  const auto report = reportOf<VenueLoadReport>([&](auto handlers) {
    loadVenueReporting(APISession(), venue, accessible, std::move(handlers));
  });
  finishStoring(APISession().store());
  check(report.failures, needed);
  return venue;
}

std::shared_ptr<Venue> Session::loadStored(const std::string& slug, bool accessible) {
  auto report = reportOf<StoredVenueReport>(
      [&](auto handlers) { loadStoredVenue(APISession(), slug, accessible, std::move(handlers)); });
  if (!report.venue)
    throw CommandError(
        ExitCode::noAnswer,
        fmt::format("the venue \"{}\" is not stored; run the command once without --offline",
                    slug));
  return std::move(report.venue);
}

}  // namespace orivanta::command
