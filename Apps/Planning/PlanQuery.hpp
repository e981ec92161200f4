// A request for guidance as users write it: texts in a command line, a URL or a JSON object.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::planning {

/// A text that cannot be used. The message is for users.
class QueryError : public std::runtime_error {
 public:
  /// The kinds of errors.
  enum class Kind {
    invalid,   ///< the text is malformed, or contradicts another one
    notFound,  ///< nothing in the venue has this name
    ambiguous  ///< several places have this name
  };

  QueryError(Kind errorKind, const std::string& message)
      : std::runtime_error(message), kind(errorKind) {}

  const Kind kind;
};

/// The texts of a request. A place is the identifier or the name of a location, the identifier of a
/// node, or "@FLOOR,X,Y" with a position in the venue's units.
struct PlanQuery {
  std::vector<std::string> from;       ///< several texts mean any of these places
  std::vector<std::string> to;         ///< several texts mean any of these places
  std::vector<std::string> via;        ///< stops in between, in order
  std::optional<std::string> nearest;  ///< a category in place of `to`: its nearest place
  bool bestOrder = false;              ///< whether `via` may be visited in any order
  std::string profile = "fastest";     ///< see `profileNames`
  bool avoidOutdoors = false;          ///< whether to avoid outdoor floors
  std::optional<double> walkingSpeed;  ///< in meters per second, 0.2 to 5
  std::optional<std::string> at;       ///< the departure in local time: 2026-11-21T18:30
  std::vector<std::string> closed;     ///< identifiers of closed connectors, places or nodes
  int alternatives = 0;                ///< 0 to 4
};

/// The most alternatives of a request.
constexpr int mostAlternatives = 4;

/// Returns "fastest", "step-free", "prefer-lift" and "no-escalator".
const std::vector<std::string>& profileNames();

/// Returns the profile with this name. Returns nothing if there is none.
std::optional<guidance::Profile> profileNamed(std::string_view name);

/// Returns the profile with the preferences of a request. Throws `QueryError`.
guidance::Profile profileOf(const PlanQuery& query);

/// Returns the stop that a place's text refers to. Throws `QueryError`.
guidance::Stop stopNamed(const Venue& venue, const std::string& text);

/// Returns the stop for several texts: any node of these places. Throws `QueryError`.
guidance::Stop stopNamed(const Venue& venue, const std::vector<std::string>& texts);

/// Returns the category with this identifier, which may omit "cat-", or with this name ignoring
/// case and width. Throws `QueryError`.
std::shared_ptr<Category> categoryNamed(const Venue& venue, const std::string& text);

/// Returns the request. The venue must be loaded. `closures` are closed in addition. Throws
/// `QueryError`, also if there are more stops than `guidance::Request` allows.
guidance::Request requestOf(const Venue& venue, const PlanQuery& query,
                            const guidance::Closures& closures = {});

}  // namespace orivanta::planning
