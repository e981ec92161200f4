#include "Source/UI/Display/Styled/RouteBoxes.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta {

namespace {

constexpr double spacing = 10;  // points

// The shares of a segment between which it lies in the view.
struct Shares {
  double first = 0;
  double last = 1;

  // Keeps the shares at which a coordinate is between 0 and `most`.
  void clip(double start, double way, double most) {
    if (way == 0) {
      if (start < 0 || start > most) last = -1;
      return;
    }
    const auto [enters, leaves] = std::minmax({-start / way, (most - start) / way});
    first = std::max(first, enters);
    last = std::min(last, leaves);
  }
};

}  // namespace

void addRouteBoxes(const ProjectedPlace& from, const ProjectedPlace& to, graphics::Size view,
                   double width, std::vector<graphics::Rect>& boxes) {
  if (!(from.pointsPerUnit > 0) || !(to.pointsPerUnit > 0)) return;
  const double right = to.point.x - from.point.x;
  const double down = to.point.y - from.point.y;
  Shares seen;
  seen.clip(from.point.x, right, view.width);
  seen.clip(from.point.y, down, view.height);
  if (!(seen.first <= seen.last)) return;
  const double length = std::hypot(right, down) * (seen.last - seen.first);
  const int steps = std::max(1, static_cast<int>(std::ceil(length / spacing)));
  for (int i = 0; i <= steps; ++i) {
    const double share = seen.first + (seen.last - seen.first) * i / steps;
    boxes.push_back(
        {{from.point.x + right * share - width / 2, from.point.y + down * share - width / 2},
         {width, width}});
  }
}

}  // namespace orivanta
