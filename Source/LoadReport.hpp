// Reports of a load to an application: its progress, its result and its failures.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Executor.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// The progress of a load.
struct LoadProgress {
  std::size_t collectionsDone = 0;  ///< collections that are complete or have failed
  std::size_t collections = 0;      ///< collections of the whole load
  std::size_t pages = 0;            ///< received so far
  std::size_t bytes = 0;            ///< total size of the bodies of these pages
};

/// The reason why a collection could not be loaded.
enum class LoadProblem {
  noAnswer,     ///< the server is not reachable, or the connection was lost
  refused,      ///< HTTP status 401 or 403: wrong credentials, or no access with them
  notFound,     ///< HTTP status 404
  otherStatus,  ///< any other HTTP status that is not a success
  unusable,     ///< the response is not valid JSON or does not fit into memory
  insecure,     ///< a link or a redirect leads from HTTPS to HTTP
  endless,      ///< the pages form a cycle, are too many or arrive too slowly
  tooLarge      ///< the load exceeds its memory budget
};

/// Returns whether this problem ends the load.
constexpr bool endsLoad(LoadProblem problem) {
  return problem == LoadProblem::endless || problem == LoadProblem::tooLarge;
}

/// A collection that failed and counts as empty.
struct LoadFailure {
  /// The name of the resource in the API, such as "node", or "venue" for the whole venue.
  std::string collection;
  LoadProblem problem = LoadProblem::noAnswer;  ///< the kind of failure
  int statusCode = 0;  ///< HTTP status of the latest page; 0 if there was none
  std::string reason;  ///< a sentence for users, with the URL and without a final period
};

/// The result of `loadVenuesReporting`.
struct VenueListReport {
  std::vector<std::shared_ptr<Venue>> venues;  ///< in the order of the API
  std::vector<LoadFailure> failures;           ///< at most one
};

/// The result of `loadVenueReporting`.
struct VenueLoadReport {
  std::shared_ptr<Venue> venue;       ///< the venue of the load
  std::vector<LoadFailure> failures;  ///< at most one for each collection

  /// False if the load was ended early (see `endsLoad`); the load then adds no collections to the
  /// venue. Any other failure leaves one collection empty.
  bool complete = true;
};

/// The result of `loadStoredVenues`.
struct StoredListReport {
  /// The venues of the list that are themselves stored, in the order of the API.
  std::vector<std::shared_ptr<Venue>> venues;
  std::shared_ptr<Venue> latest;  ///< the one of them that was used last; null if there is none
  std::chrono::system_clock::time_point storedAt;  ///< when the list was last loaded from the API
};

/// The result of `loadStoredVenue`.
struct StoredVenueReport {
  std::shared_ptr<Venue> venue;                    ///< null if the venue is not stored
  std::chrono::system_clock::time_point storedAt;  ///< when it was last loaded from the API

  /// The URLs of the models, materials and pictures that its records name.
  std::vector<std::string> files;
};

/// The callbacks of a load, called one at a time. Each field may be empty.
///
///   loadVenueReporting(session, venue, true,
///                      {.ended = show, .executor = foundation::mainQueue::async});
template <class Report>
struct LoadHandlers {
  /// Called at the start, for each page and at the end of each collection.
  std::function<void(const LoadProgress& progress)> progressed = nullptr;

  /// Called once, at the end. Not called after `cancel`.
  std::function<void(Report report)> ended = nullptr;

  /// Calls the handlers. If empty, they are called on a background thread.
  foundation::Executor executor = nullptr;
};

/// A handle to a running load. Destroying the handle does not end the load.
class ORIVANTA_API LoadHandle {
 public:
  virtual ~LoadHandle() = default;

  /// Ends the requests. After it returns, no handler is called, except one that is already running
  /// on another thread, and no venue is changed; the next load may start. Thread-safe; may be
  /// called from a handler.
  virtual void cancel() = 0;
};

}  // namespace orivanta
