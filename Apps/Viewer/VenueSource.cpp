#include "Apps/Viewer/VenueSource.hpp"

#include <algorithm>
#include <utility>

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

constexpr std::size_t mostClosureBytes = std::size_t{16} << 20U;

// Adds the identifiers of an array of objects. Anything else counts as empty.
std::vector<std::string> withIdentifiers(std::vector<std::string> identifiers,
                                         const RawData& page) {
  for (const RawData& element : page.arrayValue())
    if (auto id = element["id"].string()) identifiers.push_back(std::move(*id));
  return identifiers;
}

}  // namespace

VenueSource::VenueSource(ApiSettings settings, std::string languages,
                         guidance::InterfaceTexts texts)
    : settings_(std::move(settings)), languages_(std::move(languages)), texts_(std::move(texts)) {}

Problem VenueSource::problemOf(const LoadFailure& failure) const {
  const char* title =
      failure.collection == "venue" ? "interface.problem.list" : "interface.problem.venue";
  const bool isRefused = failure.problem == LoadProblem::refused;
  if (isRefused) title = "interface.problem.rejected";
  if (failure.problem == LoadProblem::noAnswer) title = "interface.problem.silent";
  return {texts_.text(title), sentence(failure.reason), isRefused};
}

// A rejection of the credentials is the most important problem.
std::optional<Problem> VenueSource::problemIn(const std::vector<LoadFailure>& failures,
                                              const std::vector<std::string_view>& needed) const {
  std::optional<Problem> first;
  for (const LoadFailure& failure : failures) {
    const bool isNeeded =
        endsLoad(failure.problem) ||
        std::find(needed.begin(), needed.end(), failure.collection) != needed.end();
    if (!isNeeded || (first && failure.problem != LoadProblem::refused)) continue;
    first = problemOf(failure);
    if (first->isRefused) break;
  }
  return first;
}

WebApiSession VenueSource::makeSession() const {
  const WebApiSession session(*settings_.endpoint, *settings_.username, *settings_.password,
                              languages_, nullptr, settings_.loadBytes, settings_.transport);
  return session.withLowestRate(settings_.lowestRate.value_or(session.lowestRate()))
      .storingIn(settings_.store);
}

void VenueSource::cancel() {
  for (auto* const load : {&load_, &storedLoad_})
    if (const auto running = std::exchange(*load, nullptr)) running->cancel();
  closures_.cancel();
  fetchesClosures_ = false;
}

template <class Report>
LoadHandlers<Report> VenueSource::handlersFor(const Handlers& handlers,
                                              const std::vector<std::string_view>& needed,
                                              std::function<void(Report)> done) const {
  return {.progressed = handlers.progressed,
          .ended =
              [this, needed, failed = handlers.failed, done = std::move(done)](Report report) {
                if (const auto problem = problemIn(report.failures, needed))
                  failed(*problem);
                else
                  done(std::move(report));
              },
          .executor = foundation::mainQueue::async};
}

void VenueSource::fetchVenues(Handlers handlers, std::function<void(Venues)> done) {
  const auto listed = [this, done = std::move(done),
                       failed = handlers.failed](const VenueListReport& report) {
    if (report.venues.empty())
      failed(
          {texts_.text("interface.problem.none"),
           texts_.text("interface.problem.none.detail", {{"address", texts_.name(endpoint())}})});
    else
      done(report.venues);
  };
  cancel();
  load_ =
      loadVenuesReporting(makeSession(), handlersFor<VenueListReport>(handlers, {"venue"}, listed));
}

void VenueSource::loadVenue(const std::shared_ptr<Venue>& venue, Handlers handlers,
                            std::function<void(const std::vector<LoadFailure>&)> done) {
  const auto loaded = [this, venue, done = std::move(done),
                       failed = handlers.failed](const VenueLoadReport& report) {
    if (venue->maps->empty())
      failed({texts_.text("interface.problem.empty"),
              texts_.text("interface.problem.empty.detail",
                          {{"venue", texts_.name(venue->name.value_or(""))}})});
    else
      done(report.failures);
  };
  cancel();
  load_ =
      loadVenueReporting(makeSession(), venue, /*accessible=*/false,
                         handlersFor<VenueLoadReport>(
                             handlers, {"location", "map", "node", "polygon", "vortex"}, loaded));
}

void VenueSource::loadStoredVenues(std::function<void(StoredListReport)> done) {
  if (const auto former = std::exchange(storedLoad_, nullptr)) former->cancel();
  storedLoad_ = orivanta::loadStoredVenues(
      makeSession(), {.ended = std::move(done), .executor = foundation::mainQueue::async});
}

void VenueSource::loadStoredVenue(const std::string& slug,
                                  std::function<void(StoredVenueReport)> done) {
  if (const auto former = std::exchange(storedLoad_, nullptr)) former->cancel();
  storedLoad_ = orivanta::loadStoredVenue(
      makeSession(), slug, /*accessible=*/false,
      {.ended = std::move(done), .executor = foundation::mainQueue::async});
}

void VenueSource::fetchClosures(const std::string& slug,
                                std::function<void(guidance::Closures)> done) {
  if (std::exchange(fetchesClosures_, true)) return;
  closures_ = foundation::CancellationSource();
  const auto token = closures_.token();
  const auto end = [this, token](std::function<void()> tell) {
    foundation::mainQueue::async([this, token, tell = std::move(tell)] {
      if (token.isCanceled()) return;  // this object may be gone
      fetchesClosures_ = false;
      if (tell) tell();
    });
  };
  network::TransferRules rules = network::strictRules();
  rules.budget = std::make_shared<foundation::MemoryBudget>(mostClosureBytes);
  const auto chain = makeSession()
                         .ApiHttpSession.get("closure", {{"venue", slug}}, {rules, nullptr, token})
                         .onPage<std::vector<std::string>>({}, withIdentifiers);
  chain.onComplete([end, done = std::move(done)](const std::vector<std::string>& identifiers) {
    end([done, identifiers] { done(guidance::Closures(identifiers)); });
  });
  chain.onError([end](const foundation::Error&) { end(nullptr); });
}

}  // namespace orivanta::viewer
