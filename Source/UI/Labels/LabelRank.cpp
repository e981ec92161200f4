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

}  // namespace orivanta
