// Routes with instructions, for the subcommand `route`.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::command {

/// The options of `route` that ask for instructions.
struct GuideOptions {
  bool guide = false;
  planning::PlanQuery query;  ///< without `from` and `to`
  std::optional<std::string> profile;
  std::optional<std::string> language;

  /// Returns whether one of the options is given.
  bool given() const;
};

/// Makes names and instructions use a language, if one is given. Call it before the first request.
void preferLanguage(const std::optional<std::string>& language);

/// Returns the preferred languages of the user as a list for `guidance::Narrator`.
std::string preferredLanguageList();

/// Plans the route and prints it. Throws `CommandError` if a text cannot be used.
ExitCode guideRoute(const Venue& venue, const planning::PlanQuery& query, bool json);

}  // namespace orivanta::command
