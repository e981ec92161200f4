#include "Source/UI/Display/Styled/NamePlaces.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orivanta {

using graphics::Rect;

namespace {

// Lengths in points.
constexpr double leastPitch = 90;     // of the anchors in an area; the name stays in nearer ones
constexpr double marginOfNew = 24;    // from the edges and the panels
constexpr double marginOfChosen = 0;  // the same, for the chosen label

// Returns whether the name at an anchor, in as many lines as possible, is in the view.
bool isFree(const PlaceLabel& label, const ProjectedPlace& place, graphics::Size view,
            std::span<const Rect> panels, double margin) {
  if (!(place.pointsPerUnit > 0) || label.names.empty()) return false;
  const graphics::Size name = label.names.back();
  const graphics::Size room{name.width + 2 * margin, name.height + 2 * margin};
  const Rect rect{{place.point.x - room.width / 2, place.point.y - room.height / 2}, room};
  return rect.minX() >= 0 && rect.minY() >= 0 && rect.maxX() <= view.width &&
         rect.maxY() <= view.height &&
         std::none_of(panels.begin(), panels.end(),
                      [&](const Rect& panel) { return panel.intersects(rect); });
}

}  // namespace

void NamePlaces::reset() { chosen_.clear(); }

void NamePlaces::choose(const FloorLabels& labels, std::span<ProjectedPlace> places,
                        graphics::Size view, std::span<const Rect> panels) {
  chosen_.resize(labels.large.size());
  for (std::size_t i = 0; i < labels.large.size(); ++i) {
    const LargeArea& area = labels.large[i];
    std::size_t& chosen = chosen_[i];
    if (chosen < area.first) chosen = area.main;
    const auto isFreeAt = [&](std::size_t label) {
      return isFree(labels.labels[label], places[label], view, panels,
                    label == chosen ? marginOfChosen : marginOfNew);
    };
    const bool isNear = places[area.main].pointsPerUnit * area.pitch >= leastPitch;
    if (!isNear || isFreeAt(area.main)) {
      chosen = area.main;
    } else if (!isFreeAt(chosen)) {
      double nearest = std::numeric_limits<double>::max();
      std::size_t best = area.main;
      for (std::size_t label = area.first; label < area.end; ++label) {
        const graphics::Point at = places[label].point;
        const double away = std::hypot(at.x - view.width / 2, at.y - view.height / 2);
        if (away >= nearest || !isFreeAt(label)) continue;
        nearest = away;
        best = label;
      }
      chosen = best;
    }
    for (std::size_t label = area.first; label < area.end; ++label)
      if (label != chosen) places[label].pointsPerUnit = 0;
    if (chosen != area.main) places[area.main].pointsPerUnit = 0;
  }
}

}  // namespace orivanta
