#include "Source/UI/Labels/LabelRank.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta {

namespace {

constexpr double bonusPerDoubling = 3.5;
constexpr double mostBonus = 14;
constexpr double areaWithoutBonus = 30;  // square meters
constexpr double generatedPenalty = 26;

}  // namespace

double labelRank(double kindRank, double area, bool isNameGenerated) {
  const double bonus =
      area > areaWithoutBonus
          ? std::min(mostBonus, bonusPerDoubling * std::log2(area / areaWithoutBonus))
          : 0.0;
  return kindRank + bonus - (isNameGenerated ? generatedPenalty : 0.0);
}

LabelScales labelScales(double rank) {
  if (rank >= leastLeadingRank) return {0.5, 1};
  if (rank >= 60) return {1.2, 2.2};
  if (rank >= 40) return {2.2, 3};
  return {3.2, 4.5};
}

double labelFontSize(double rank) { return rank < 40 ? 11 : 12; }

}  // namespace orivanta
