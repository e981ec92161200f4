#include "Apps/Command/GuideRoute.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstdlib>

#include "Apps/Command/Output.hpp"
#include "Apps/Planning/PlanJson.hpp"
#include "Apps/Text/Json.hpp"
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
  for (std::size_t i = 0; i < texts.size(); ++i) text += fmt::format("{:3}. {}\n", i + 1, texts[i]);
  const std::string summary = narrator.summary(itinerary);
  return summary.empty() ? text : text + "     " + summary + '\n';
}

}  // namespace

bool GuideOptions::given() const { return language || givenForOneRoute(); }

bool GuideOptions::givenForOneRoute() const {
  return guide || profile || query.nearest || query.at || query.bestOrder || query.avoidOutdoors ||
         query.walkingSpeed || query.alternatives != 0 || !query.via.empty() ||
         !query.closed.empty();
}

planning::PlanQuery GuideOptions::queryFor(const std::vector<std::string>& from,
                                           const std::vector<std::string>& to,
                                           const std::string& otherProfile) const {
  planning::PlanQuery result = query;
  result.from = from;
  result.to = to;
  result.profile = profile.value_or(otherProfile);
  return result;
}

void preferLanguage(const std::optional<std::string>& language) {
  if (language) setenv("LANGUAGE", language->c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
}

std::string preferredLanguageList() {
  return fmt::format("{}", fmt::join(foundation::preferredLanguages(), ","));
}

CommandError commandError(const QueryError& error) {
  return {error.kind == QueryError::Kind::notFound ? ExitCode::notFound : ExitCode::wrongUse,
          error.what()};
}

std::shared_ptr<const guidance::Guide> guideFor(const Venue& venue) {
  auto guide = guidance::Guide::make(venue);
  if (!guide) throw CommandError(ExitCode::noAnswer, "the venue has no walking network");
  return guide;
}

ExitCode complainAbout(const guidance::Guide& guide, const guidance::Problem& problem,
                       const guidance::Request& request, const guidance::Narrator& narrator) {
  const bool known = problem.stop < request.stops.size();
  complain(narrator.text(problem,
                         known ? guide.spokenName(request.stops[problem.stop]) : std::string()));
  return ExitCode::notFound;
}

ExitCode guideRoute(const Venue& venue, const planning::PlanQuery& query, bool json) try {
  const auto guide = guideFor(venue);
  const guidance::Request request = planning::requestOf(venue, query);
  const guidance::Plan plan = guide->plan(request);
  const guidance::Narrator narrator(preferredLanguageList());
  if (json) writeOutput(text::jsonText(planning::planJson(*guide, plan, request, narrator)) + '\n');
  if (plan.problem) return complainAbout(*guide, *plan.problem, request, narrator);
  if (json) return ExitCode::success;
  std::string text;
  for (std::size_t i = 0; i < plan.itineraries.size(); ++i) {
    if (i > 0) text += fmt::format("\nAlternative {}:\n", i);
    text += listText(*guide, plan.itineraries[i], narrator);
  }
  writeOutput(text);
  return ExitCode::success;
} catch (const QueryError& error) {
  throw commandError(error);
}

}  // namespace orivanta::command
