#include "Apps/Import/Connectors/StatedLevels.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

namespace {

constexpr double nothingNear = 2.0;  // meters

void reportContradiction(const StatedEnd& end, const PathsByLevel::value_type& path, double level,
                         Findings& findings) {
  const auto& [pathLevel, pathSource] = path;
  const double stated = end.spot.level;
  Finding finding = makeFinding(
      Severity::warning, "connector-level-contradicted", end.source, {level, end.spot.position},
      {.message = fmt::format(
           "The {} {} states level {:g} for this end, but {}, which is joined to it, is on level "
           "{:g}.",
           wordFor(end.kind), end.source, stated, pathSource, pathLevel),
       .effect = level == stated
                     ? fmt::format("Routes use the end on level {:g}; it does not lead to {}.",
                                   stated, pathSource)
                     : fmt::format("Nothing is drawn near the end on level {:g}; it is taken to be "
                                   "on level {:g}.",
                                   stated, level),
       .advice =
           fmt::format("Correct the levels of {}, or the level of {}.", end.source, pathSource)});
  finding.field = "level";
  findings.add(std::move(finding));
}

}  // namespace

bool isLost(const Spot& end, const std::string& point, const Surroundings& surroundings) {
  const PathsByLevel& paths = surroundings.pathsAt(point);
  return !paths.empty() && !paths.contains(end.level) &&
         surroundings.distance(end.level, end.position) >= nothingNear;
}

double settledLevel(const StatedEnd& end, const Surroundings& surroundings, Findings& findings) {
  const double stated = end.spot.level;
  const PathsByLevel& paths = surroundings.pathsAt(end.point);
  if (paths.empty() || paths.contains(stated)) return stated;
  const auto& nearest =
      *std::min_element(paths.begin(), paths.end(), [&](const auto& a, const auto& b) {
        return std::abs(a.first - stated) < std::abs(b.first - stated);
      });
  const bool moves = end.mayMove && isLost(end.spot, end.point, surroundings);
  const double level = moves ? nearest.first : stated;
  reportContradiction(end, nearest, level, findings);
  return level;
}

}  // namespace orivanta::importer
