#include "Apps/Import/Storeys/EachLevel.hpp"

#include <algorithm>

namespace orivanta::importer {

Point middleOf(const Area& area) {
  bool any = false;
  Point low;
  Point high;
  for (const Polygon& polygon : area.shape) {
    for (const Point point : polygon.outer) {
      if (!any) low = high = point;
      any = true;
      low = {std::min(low.x, point.x), std::min(low.y, point.y)};
      high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
  }
  return (low + high) * 0.5;
}

}  // namespace orivanta::importer
