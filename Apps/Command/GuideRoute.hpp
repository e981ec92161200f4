// Routes with instructions, for the subcommand `route`.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Narrator.hpp"

namespace orivanta::command {

/// The options of `route` that ask for instructions.
struct GuideOptions {
  bool guide = false;
  planning::PlanQuery query;  ///< without `from` and `to`
  std::optional<std::string> profile;
  std::optional<std::string> language;

  /// Returns whether one of the options is given.
  bool given() const;

  /// Returns the query for a route between places. `otherProfile` is used if no profile is given.
  planning::PlanQuery queryFor(const std::vector<std::string>& from,
                               const std::vector<std::string>& to,
                               const std::string& otherProfile = "fastest") const;

  /// Returns whether one of the options is given that does not apply to a batch: all except
  /// `language`.
  bool givenForOneRoute() const;
};

/// Makes names and instructions use a language, if one is given. Call it before the first request.
void preferLanguage(const std::optional<std::string>& language);

/// Returns the preferred languages of the user as a list for `guidance::Narrator`.
std::string preferredLanguageList();

/// Returns the error with the exit code for its kind.
CommandError commandError(const planning::QueryError& error);

/// Returns the guide of a loaded venue. Throws `CommandError` if it has none.
std::shared_ptr<const guidance::Guide> guideFor(const Venue& venue);

/// Writes the problem of a plan to standard error, and returns the exit code for it.
ExitCode complainAbout(const guidance::Guide& guide, const guidance::Problem& problem,
                       const guidance::Request& request, const guidance::Narrator& narrator);

/// Plans the route and prints it. Throws `CommandError` if a text cannot be used.
ExitCode guideRoute(const Venue& venue, const planning::PlanQuery& query, bool json);

}  // namespace orivanta::command
