#include "Source/UI/Display/Styled/LabelObstacles.hpp"

#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Rect;

std::vector<Rect> LabelObstacles::panels(const MapView& map, const view::View& labels,
                                         double scale) const {
  std::vector<Rect> panels = covered;
  if (furniture) {
    const std::vector<Rect> aids = furniture(scale);
    panels.insert(panels.end(), aids.begin(), aids.end());
  }
  const Rect all = labels.bounds();
  bool isInFront = false;
  for (const auto& child : map.subviews()) {
    const Rect frame = child->frame();
    if (isInFront && !child->isHidden() &&
        (frame.size.width < all.size.width || frame.size.height < all.size.height))
      panels.push_back(frame);
    isInFront = isInFront || child.get() == &labels;
  }
  return panels;
}

std::vector<Rect> LabelObstacles::marks(const MapView& map, const FloorProjection& projection,
                                        const MapTheme& theme) const {
  std::vector<Rect> marks = routeMarks;
  const graphics::Size view = map.sceneView->bounds().size;
  const double width = theme.sizes.route + 2 * theme.sizes.casing;
  for (const auto& [from, to] : route)
    addRouteBoxes(projection.of(from), projection.of(to), view, width, marks);
  const auto overlay = map.sceneView->overlayScene();
  if (!overlay) return marks;
  const graphics::Size size = overlay->size();
  if (!(size.width > 0 && size.height > 0)) return marks;
  const double xStretch = view.width / size.width;
  const double yStretch = view.height / size.height;
  for (const auto& marker : map.markers()) {
    const auto* mark = dynamic_cast<const MapViewMarker2D*>(marker.get());
    if (mark == nullptr || !mark->node || !mark->node->hasParent() ||
        mark->hideWhenCollide.value_or(false))
      continue;
    const Rect frame = mark->node->frame();
    marks.push_back({{frame.minX() * xStretch, (size.height - frame.maxY()) * yStretch},
                     {frame.size.width * xStretch, frame.size.height * yStretch}});
  }
  return marks;
}

}  // namespace orivanta
