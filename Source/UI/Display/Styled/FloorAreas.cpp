#include "Source/UI/Display/Styled/FloorAreas.hpp"

#include <algorithm>
#include <cmath>

#include "Source/UI/Display/Styled/ShapeAreas.hpp"

namespace orivanta {

namespace {

constexpr double heightTolerance = 1e-3;  // scene units
constexpr double mostSquares = 4;         // along a side of an area

bool liesOn(const FloorArea& other, const FloorArea& area) {
  if (!other.middle || !other.bounds.intersects(area.bounds)) return false;
  if (other.surface == ShapeRole::Surface::backdrop) return true;
  return other.area.size < area.area.size &&
         other.area.height >= area.area.height - heightTolerance &&
         area.area.contains(other.middle->point);
}

}  // namespace

FloorAreas::FloorAreas(const FloorRecords& records) {
  for (const ShapeRecord& shape : records.shapes) {
    FloorArea made;
    made.area = areaOf(*shape.geometry);
    made.bounds = made.area.bounds();
    made.middle = labelAnchor(made.area);
    made.surface = shape.surface;
    indices_[shape.name] = areas_.size();
    areas_.push_back(std::move(made));
  }
  names_.resize(areas_.size());
}

std::vector<std::size_t> FloorAreas::indicesOf(const std::vector<std::string>& shapes) const {
  std::vector<std::size_t> found;
  for (const std::string& name : shapes)
    if (const auto index = indices_.find(name); index != indices_.end())
      found.push_back(index->second);
  return found;
}

std::optional<std::size_t> FloorAreas::largest(const std::vector<std::string>& shapes) const {
  std::optional<std::size_t> best;
  for (const std::size_t index : indicesOf(shapes))
    if (areas_[index].middle && (!best || areas_[index].area.size > areas_[*best].area.size))
      best = index;
  return best;
}

AreaName FloorAreas::nameIn(std::size_t index) const {
  const std::lock_guard lock(mutex_);
  AreaName& name = names_[index];
  if (!name.room) {
    const FloorArea& area = areas_[index];
    const std::vector<LabelArea> onIt = areasOn(index);
    name.anchor = onIt.empty() ? *area.middle : labelAnchor(area.area, onIt).value_or(*area.middle);
    name.room = std::make_shared<const LabelRoom>(area.area, onIt, name.anchor);
  }
  return name;
}

double FloorAreas::pitchIn(std::size_t index, double least) const {
  const graphics::Size size = areas_[index].bounds.size;
  return std::max(least, std::max(size.width, size.height) / mostSquares);
}

std::vector<AreaName> FloorAreas::namesIn(std::size_t index, double pitch) const {
  const FloorArea& area = areas_[index];
  const graphics::Rect& bounds = area.bounds;
  const int columns = std::max(1, static_cast<int>(std::lround(bounds.size.width / pitch)));
  const int rows = std::max(1, static_cast<int>(std::lround(bounds.size.height / pitch)));
  std::vector<AreaName> names;
  if (columns * rows == 1) return names;
  const std::vector<LabelArea> onIt = areasOn(index);
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column) {
      const graphics::Point middle{bounds.minX() + (column + 0.5) * bounds.size.width / columns,
                                   bounds.minY() + (row + 0.5) * bounds.size.height / rows};
      const auto isAt = [&](const LabelArea& other) { return other.contains(middle); };
      if (!area.area.contains(middle) || std::any_of(onIt.begin(), onIt.end(), isAt)) continue;
      const LabelAnchor anchor{middle, 0};
      names.push_back({anchor, std::make_shared<const LabelRoom>(area.area, onIt, anchor)});
    }
  return names;
}

// Returns the smaller areas that lie on an area and are not hidden below it, and openings.
std::vector<LabelArea> FloorAreas::areasOn(std::size_t index) const {
  std::vector<LabelArea> found;
  for (std::size_t i = 0; i < areas_.size(); ++i)
    if (i != index && liesOn(areas_[i], areas_[index])) found.push_back(areas_[i].area);
  return found;
}

}  // namespace orivanta
