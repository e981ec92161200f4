#include "Apps/Command/GuideRoute.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstdlib>

#include "Apps/Command/Json.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Planning/PlanJson.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/Languages.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

using planning::QueryError;

namespace {

std::string listText(const guidance::Guide& guide, const guidance::Itinerary& itinerary,
                     const guidance::Narrator& narrator) {
  std::string text;
  const auto steps = guide.steps(itinerary);
  const auto texts = narrator.texts(itinerary, steps);
  for (std::size_t i = 0; i < texts.size(); ++i)
    text += fmt::format("{:3}. {}\n", i + 1, foundation::printable(texts[i]));
  const std::string summary = narrator.summary(itinerary);
  return summary.empty() ? text : text + "     " + summary + '\n';
}

ExitCode exitCodeOf(QueryError::Kind kind) {
  return kind == QueryError::Kind::notFound ? ExitCode::notFound : ExitCode::wrongUse;
}

}  // namespace

bool GuideOptions::given() const {
  return guide || profile || language || query.nearest || query.at || query.bestOrder ||
         query.avoidOutdoors || query.walkingSpeed || query.alternatives != 0 ||
         !query.via.empty() || !query.closed.empty();
}

void preferLanguage(const std::optional<std::string>& language) {
  if (language) setenv("LANGUAGE", language->c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
}

std::string preferredLanguageList() {
  return fmt::format("{}", fmt::join(foundation::preferredLanguages(), ","));
}

ExitCode guideRoute(const Venue& venue, const planning::PlanQuery& query, bool json) try {
  const auto guide = guidance::Guide::make(venue);
  if (!guide) throw CommandError(ExitCode::noAnswer, "the venue has no walking network");
  const guidance::Request request = planning::requestOf(venue, query);
  const guidance::Plan plan = guide->plan(request);
  const guidance::Narrator narrator(preferredLanguageList());
  if (json) writeOutput(jsonText(planning::planJson(*guide, plan, request, narrator)) + '\n');
  if (plan.problem) {
    const std::size_t stop = plan.problem->stop;
    complain(narrator.text(*plan.problem, stop < request.stops.size()
                                              ? planning::nameOf(request.stops[stop])
                                              : std::string()));
    return ExitCode::notFound;
  }
  if (json) return ExitCode::success;
  std::string text;
  for (std::size_t i = 0; i < plan.itineraries.size(); ++i) {
    if (i > 0) text += fmt::format("\nAlternative {}:\n", i);
    text += listText(*guide, plan.itineraries[i], narrator);
  }
  writeOutput(text);
  return ExitCode::success;
} catch (const QueryError& error) {
  throw CommandError(exitCodeOf(error.kind), error.what());
}

}  // namespace orivanta::command
