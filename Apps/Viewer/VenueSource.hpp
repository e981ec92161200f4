// The web API as the viewer asks it: in the background, with progress and reasons.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/LoadReport.hpp"
#include "Source/Orivanta.hpp"

namespace orivanta::viewer {

/// Why there is nothing to show, for people.
struct Problem {
  std::string title;
  std::string detail;  ///< sentences
};

/// Made and used on the main thread. What a source that is gone has asked for is never told. A new
/// request ends the former one.
class VenueSource {
 public:
  using Venues = std::vector<std::shared_ptr<Venue>>;

  /// Called from the main queue; after each request `failed` or what was asked for, once.
  struct Handlers {
    std::function<void(const LoadProgress&)> progressed;
    std::function<void(const Problem&)> failed;
  };

  /// `settings` has all but the observer.
  explicit VenueSource(ApiSettings settings);
  ~VenueSource() { cancel(); }
  VenueSource(const VenueSource&) = delete;
  VenueSource& operator=(const VenueSource&) = delete;

  /// An empty list is a problem as well.
  void fetchVenues(Handlers handlers, std::function<void(Venues)> done);

  /// All collections of a venue, with the whole of its navigation graph. Fails without its floors,
  /// locations or nodes; `missing` says what else is not there.
  void loadVenue(const std::shared_ptr<Venue>& venue, Handlers handlers,
                 std::function<void(const std::vector<LoadFailure>& missing)> done);

  /// Ends what is under way. No handler is called any more.
  void cancel();

  const std::string& endpoint() const { return *settings_.endpoint; }

 private:
  WebApiSession makeSession() const;

  template <class Report>
  static LoadHandlers<Report> handlersFor(const Handlers& handlers,
                                          const std::vector<std::string_view>& needed,
                                          std::function<void(Report)> done);

  ApiSettings settings_;
  std::shared_ptr<LoadHandle> load_;
};

}  // namespace orivanta::viewer
