#include "Source/UI/Labels/MapMotion.hpp"

#include <cmath>

namespace orivanta {

namespace {

constexpr double leastPoints = 6;
constexpr double leastSpread = 1e-3;  // of the determinant, relative to the points on a circle

}  // namespace

void MapMotion::solve() {
  if (!(count_ > 0)) return;
  middle_ = {sum_.x / count_, sum_.y / count_};
  mean_ = {velocity_.x / count_, velocity_.y / count_};
  const double xx = xx_ - sum_.x * middle_.x;
  const double xy = xy_ - sum_.x * middle_.y;
  const double yy = yy_ - sum_.y * middle_.y;
  const double determinant = xx * yy - xy * xy;
  if (count_ < leastPoints || !(determinant > leastSpread * std::pow((xx + yy) / 2, 2))) return;
  const graphics::Point x{byX_.x - sum_.x * mean_.x, byX_.y - sum_.x * mean_.y};
  const graphics::Point y{byY_.x - sum_.y * mean_.x, byY_.y - sum_.y * mean_.y};
  alongX_ = {(x.x * yy - y.x * xy) / determinant, (x.y * yy - y.y * xy) / determinant};
  alongY_ = {(y.x * xx - x.x * xy) / determinant, (y.y * xx - x.y * xy) / determinant};
}

// The velocity is a linear function of the position, so the way is an exponential series.
MapWay MapMotion::in(double seconds) const {
  const auto turned = [&](graphics::Point term) {
    return graphics::Point{alongX_.x * term.x + alongY_.x * term.y,
                           alongX_.y * term.x + alongY_.y * term.y};
  };
  MapWay found{middle_, {}, {}, {}};
  graphics::Point terms[] = {mean_, alongX_, alongY_};
  graphics::Point* const sums[] = {&found.way, &found.alongX, &found.alongY};
  double factor = 1;
  for (int order = 1; order <= 4; ++order) {
    factor *= seconds / order;
    for (int i = 0; i < 3; ++i) {
      *sums[i] = {sums[i]->x + terms[i].x * factor, sums[i]->y + terms[i].y * factor};
      terms[i] = turned(terms[i]);
    }
  }
  return found;
}

}  // namespace orivanta
