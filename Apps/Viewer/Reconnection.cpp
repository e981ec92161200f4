#include "Apps/Viewer/Reconnection.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "Source/Venue.hpp"

namespace orivanta::viewer {

Reconnection::Reconnection(const ApiSettings& settings, const std::string& languages,
                           const guidance::InterfaceTexts& texts, Handlers handlers)
    : source_(settings, languages, texts), handlers_(std::move(handlers)) {}

void Reconnection::advance(double time) {
  time_ = time;
  if (isTrying_) return;
  if (!at_) at_ = time + pauses_.next();
  if (time >= *at_) tryNow();
}

double Reconnection::nextTime() const {
  return isTrying_ ? std::numeric_limits<double>::infinity() : at_.value_or(time_);
}

void Reconnection::tryNow() {
  if (std::exchange(isTrying_, true)) return;
  source_.fetchVenues({nullptr, [this](const Problem& problem) { failed(problem); }},
                      [this](const VenueSource::Venues& venues) { fetchVenue(venues); });
}

void Reconnection::fetchVenue(const VenueSource::Venues& venues) {
  const auto slug = handlers_.slug();
  if (!slug) return handlers_.connected(venues, nullptr);
  const auto found = std::find_if(venues.begin(), venues.end(),
                                  [&](const auto& venue) { return venue->slug == slug; });
  if (found == venues.end()) return failed({});
  const auto venue = Venue::make((*found)->_data);
  source_.loadVenue(venue, {nullptr, [this](const Problem& problem) { failed(problem); }},
                    [this, venues, venue](const std::vector<LoadFailure>& missing) {
                      if (!missing.empty()) return failed({});
                      handlers_.connected(venues, venue);
                    });
}

void Reconnection::failed(const Problem& problem) {
  if (problem.isRefused) return handlers_.refused(problem);
  isTrying_ = false;
  at_.reset();
}

}  // namespace orivanta::viewer
