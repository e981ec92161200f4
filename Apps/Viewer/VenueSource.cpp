#include "Apps/Viewer/VenueSource.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "Platform/Foundation/Languages.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Venue.hpp"
#include "Source/WebApi.hpp"

namespace orivanta::viewer {

namespace {

// Returns the text with a capital letter and a period.
std::string sentence(std::string text) {
  if (!text.starts_with("http") && !text.empty() && text.front() >= 'a' && text.front() <= 'z')
    text.front() = static_cast<char>(text.front() - 'a' + 'A');
  if (!text.empty() && text.back() != '?') text += '.';
  return text;
}

Problem problemOf(const LoadFailure& failure) {
  const std::string reason = sentence(failure.reason);
  switch (failure.problem) {
    case LoadProblem::refused:
      return {"The server rejected the credentials", reason};
    case LoadProblem::noAnswer:
      return {"The server is not responding", reason};
    default:
      return {failure.collection == "venue" ? "The list of venues cannot be loaded"
                                            : "The venue cannot be loaded",
              reason};
  }
}

constexpr std::size_t mostClosureBytes = std::size_t{16} << 20U;

// Adds the identifiers of an array of objects. Anything else counts as empty.
std::vector<std::string> withIdentifiers(std::vector<std::string> identifiers,
                                         const RawData& page) {
  for (const RawData& element : page.arrayValue())
    if (auto id = element["id"].string()) identifiers.push_back(std::move(*id));
  return identifiers;
}

std::optional<Problem> problemIn(const std::vector<LoadFailure>& failures,
                                 const std::vector<std::string_view>& needed) {
  const auto first =
      std::find_if(failures.begin(), failures.end(), [&](const LoadFailure& failure) {
        return endsLoad(failure.problem) ||
               std::find(needed.begin(), needed.end(), failure.collection) != needed.end();
      });
  return first == failures.end() ? std::nullopt : std::optional(problemOf(*first));
}

}  // namespace

VenueSource::VenueSource(ApiSettings settings) : settings_(std::move(settings)) {}

WebApiSession VenueSource::makeSession() const {
  const WebApiSession session(*settings_.endpoint, *settings_.username, *settings_.password,
                              fmt::format("{}", fmt::join(foundation::preferredLanguages(), ", ")),
                              nullptr, settings_.loadBytes, settings_.transport);
  return session.withLowestRate(settings_.lowestRate.value_or(session.lowestRate()));
}

void VenueSource::cancel() {
  if (const auto load = std::exchange(load_, nullptr)) load->cancel();
  closures_.cancel();
}

template <class Report>
LoadHandlers<Report> VenueSource::handlersFor(const Handlers& handlers,
                                              const std::vector<std::string_view>& needed,
                                              std::function<void(Report)> done) {
  return {.progressed = handlers.progressed,
          .ended =
              [needed, failed = handlers.failed, done = std::move(done)](Report report) {
                if (const auto problem = problemIn(report.failures, needed))
                  failed(*problem);
                else
                  done(std::move(report));
              },
          .executor = foundation::mainQueue::async};
}

void VenueSource::fetchVenues(Handlers handlers, std::function<void(Venues)> done) {
  const auto listed = [done = std::move(done), failed = handlers.failed,
                       endpoint = *settings_.endpoint](const VenueListReport& report) {
    if (report.venues.empty())
      failed({"No venues", "The server at " + endpoint + " has no venues for this account."});
    else
      done(report.venues);
  };
  cancel();
  load_ =
      loadVenuesReporting(makeSession(), handlersFor<VenueListReport>(handlers, {"venue"}, listed));
}

void VenueSource::loadVenue(const std::shared_ptr<Venue>& venue, Handlers handlers,
                            std::function<void(const std::vector<LoadFailure>&)> done) {
  const auto loaded = [venue, done = std::move(done),
                       failed = handlers.failed](const VenueLoadReport& report) {
    if (venue->maps->empty())
      failed({"This venue is empty", venue->name.value_or("") + " has no floors."});
    else
      done(report.failures);
  };
  cancel();
  load_ =
      loadVenueReporting(makeSession(), venue, /*accessible=*/false,
                         handlersFor<VenueLoadReport>(
                             handlers, {"location", "map", "node", "polygon", "vortex"}, loaded));
}

void VenueSource::fetchClosures(const std::string& slug,
                                std::function<void(guidance::Closures)> done) {
  closures_.cancel();
  closures_ = foundation::CancellationSource();
  const auto token = closures_.token();
  const auto tell = [token, done = std::move(done)](std::vector<std::string> identifiers) {
    foundation::mainQueue::async([token, done, identifiers = std::move(identifiers)] {
      if (!token.isCanceled()) done(guidance::Closures(identifiers));
    });
  };
  network::TransferRules rules = network::strictRules();
  rules.budget = std::make_shared<foundation::MemoryBudget>(mostClosureBytes);
  const auto chain = makeSession()
                         .ApiHttpSession.get("closure", {{"venue", slug}}, {rules, nullptr, token})
                         .onPage<std::vector<std::string>>({}, withIdentifiers);
  chain.onComplete(tell);
  chain.onError([](const foundation::Error&) {});
}

}  // namespace orivanta::viewer
