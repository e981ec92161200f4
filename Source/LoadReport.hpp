// What a load tells an application: how far it is, what came of it, and what failed and why.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Executor.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// How far a load is.
struct LoadProgress {
  std::size_t collectionsDone = 0;  ///< collections that are complete or have failed
  std::size_t collections = 0;      ///< collections of the whole load
  std::size_t pages = 0;            ///< pages received so far
  std::size_t bytes = 0;            ///< of the pages' bodies
};

/// Why a collection could not be loaded.
enum class LoadProblem {
  noAnswer,     ///< the server cannot be reached, or the connection broke
  refused,      ///< HTTP status 401 or 403: it is about the user name and password
  notFound,     ///< 404
  otherStatus,  ///< any other that is no success
  unusable,     ///< the answer is no JSON, or does not fit into memory
  insecure,     ///< a link or a redirect leads from HTTPS to HTTP
  endless,      ///< its pages run in a circle, are too many, or come too slowly
  tooLarge      ///< the load takes more memory than it may
};

/// Whether the load was given up for this problem.
constexpr bool endsLoad(LoadProblem problem) {
  return problem == LoadProblem::endless || problem == LoadProblem::tooLarge;
}

/// A collection that counts as empty although the server may have something in it.
struct LoadFailure {
  /// The resource's name in the API, such as "node"; "venue" for the venue as a whole.
  std::string collection;
  LoadProblem problem = LoadProblem::noAnswer;  ///< the kind of failure
  int statusCode = 0;                           ///< of the latest page; 0 when there was none
  std::string reason;  ///< a sentence with the URL, for people, without a full stop
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

  /// False when the load was given up (see `endsLoad`): then the venue has none of its collections.
  /// A failure of another kind leaves one empty.
  bool complete = true;
};

/// What a load calls, one call at a time. Any of the fields may be empty:
///
///   loadVenueReporting(session, venue, true, {.ended = show, .executor =
///   foundation::mainQueue::async});
template <class Report>
struct LoadHandlers {
  /// Called at the start, with each page and with the end of each collection.
  std::function<void(const LoadProgress& progress)> progressed = nullptr;

  /// Called once, at the end. Not called after `cancel`.
  std::function<void(Report report)> ended = nullptr;

  /// Where both are called. Without one they are called on a background thread.
  foundation::Executor executor = nullptr;
};

/// A load under way. Letting go of the handle does not end it.
class ORIVANTA_API LoadHandle {
 public:
  virtual ~LoadHandle() = default;

  /// Ends the requests. Once this has returned, no handler is called any more, except one that is
  /// running on another thread, and no venue is changed: the next load may start. Any thread, also
  /// from a handler.
  virtual void cancel() = 0;
};

}  // namespace orivanta
