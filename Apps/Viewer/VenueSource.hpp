// Loads from the web API in the background, with progress and reasons for failures.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/LoadReport.hpp"
#include "Source/Orivanta.hpp"

namespace orivanta::viewer {

/// Why there is nothing to show, in words for the user.
struct Problem {
  std::string title;
  std::string detail;      ///< sentences
  bool isRefused = false;  ///< whether the server rejected the credentials
};

/// Construct and use it on the main thread. If the settings have a store, complete venues are
/// stored. Listing or loading venues cancels all previous requests, and destroying the source
/// cancels the current ones.
class VenueSource {
 public:
  using Venues = std::vector<std::shared_ptr<Venue>>;

  /// Called from the main queue. Each request calls either `failed` or its `done` once.
  struct Handlers {
    std::function<void(const LoadProgress&)> progressed;
    std::function<void(const Problem&)> failed;
  };

  /// `settings` must have an endpoint, a user name and a password. The observer is not called.
  /// `languages` are tags in the form of `Accept-Language`, for the names of places. Problems are
  /// described with `texts`; the reasons that servers and the system give are in English.
  VenueSource(ApiSettings settings, std::string languages, guidance::InterfaceTexts texts);
  ~VenueSource() { cancel(); }
  VenueSource(const VenueSource&) = delete;
  VenueSource& operator=(const VenueSource&) = delete;

  /// An empty list counts as a failure.
  void fetchVenues(Handlers handlers, std::function<void(Venues)> done);

  /// Loads all collections of a venue, and its whole navigation graph. Fails if the floors,
  /// locations or nodes fail; `missing` contains the other collections that failed.
  void loadVenue(const std::shared_ptr<Venue>& venue, Handlers handlers,
                 std::function<void(const std::vector<LoadFailure>& missing)> done);

  /// Loads the list of the venues that are stored, without network access. Does not affect the
  /// requests above. Like the following function, cancels its former call.
  void loadStoredVenues(std::function<void(StoredListReport)> done);

  /// Loads a stored venue, without network access.
  void loadStoredVenue(const std::string& slug, std::function<void(StoredVenueReport)> done);

  /// Fetches what is closed in a venue, and calls `done` from the main queue. The closures are
  /// empty if the server does not provide any. If the request fails, `done` is not called. Does
  /// nothing if a former call has not ended yet. Does not affect the requests above.
  void fetchClosures(const std::string& slug, std::function<void(guidance::Closures)> done);

  /// Cancels the current requests. None of its handlers is called after that.
  void cancel();

  const std::string& endpoint() const { return *settings_.endpoint; }

 private:
  WebApiSession makeSession() const;
  Problem problemOf(const LoadFailure& failure) const;
  std::optional<Problem> problemIn(const std::vector<LoadFailure>& failures,
                                   const std::vector<std::string_view>& needed) const;

  template <class Report>
  LoadHandlers<Report> handlersFor(const Handlers& handlers,
                                   const std::vector<std::string_view>& needed,
                                   std::function<void(Report)> done) const;

  ApiSettings settings_;
  const std::string languages_;
  const guidance::InterfaceTexts texts_;
  std::shared_ptr<LoadHandle> load_;
  std::shared_ptr<LoadHandle> storedLoad_;
  foundation::CancellationSource closures_;  // of the latest request for them
  bool fetchesClosures_ = false;             // whether that request has not ended yet
};

}  // namespace orivanta::viewer
