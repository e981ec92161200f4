#include <algorithm>
#include <cmath>

#include "Source/Guidance/Steps/Bends.hpp"

namespace orivanta::guidance {

namespace {

constexpr double turnDegrees = 45.0;
constexpr double clearDegrees = 70.0;  // a turn from here on need not persist
constexpr double chordMeters = 12.0;
constexpr double widestReversal = 5.0;  // meters from the first to the last bend of a way back

// The angle between the chords before and after a bend, which end at the next bend of at least
// `limit` degrees.
double chordDegrees(const WalkLine& line, const std::vector<Bend>& bends, std::size_t index,
                    double limit) {
  const Bend& bend = bends[index];
  double begin = std::max(0.0, line.along(bend.first) - chordMeters);
  double end = std::min(line.along(line.size() - 1), line.along(bend.last) + chordMeters);
  const auto isLimit = [&](const Bend& other) { return std::abs(other.degrees) >= limit; };
  for (std::size_t i = index; i-- > 0 && line.along(bends[i].last) > begin;)
    if (isLimit(bends[i])) begin = line.along(bends[i].last);
  for (std::size_t i = index + 1; i < bends.size() && line.along(bends[i].first) < end; ++i)
    if (isLimit(bends[i])) end = line.along(bends[i].first);
  return degreesBetween(line.point(bend.first) - line.at(begin),
                        line.at(end) - line.point(bend.last));
}

Sharpness sharpnessOf(double degrees, double width) {
  if (degrees < 60.0) return Sharpness::bear;
  if (degrees <= 120.0) return Sharpness::turn;
  if (degrees <= 150.0 || width > widestReversal) return Sharpness::sharp;
  return Sharpness::around;
}

}  // namespace

std::vector<Turn> turnsOf(const WalkLine& line) {
  const std::vector<Bend> bends = bendsOf(line);
  std::vector<Turn> turns;
  for (std::size_t i = 0; i < bends.size(); ++i) {
    const Bend& bend = bends[i];
    const double degrees = std::abs(bend.degrees);
    if (degrees < turnDegrees) continue;
    const bool isClear = degrees >= clearDegrees;
    const double chords = chordDegrees(line, bends, i, isClear ? turnDegrees : clearDegrees);
    const bool persists = chords * bend.degrees > 0.0 && std::abs(chords) >= turnDegrees;
    if (!isClear && !persists) continue;
    const double width = line.along(bend.last) - line.along(bend.first);
    turns.push_back({bend.first, bend.last, bend.degrees,
                     sharpnessOf(persists ? std::abs(chords) : degrees, width)});
  }
  return turns;
}

}  // namespace orivanta::guidance
