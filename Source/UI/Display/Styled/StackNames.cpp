#include "Source/UI/Display/Styled/StackNames.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Platform/Graphics/Text.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;

namespace {

// Lengths in points.
constexpr double fontSize = 14;  // where names of places have their usual size
constexpr double heightOfName = 30;
constexpr double namePadding = 10;
constexpr double nameGap = 4;
constexpr double nameMargin = 12;  // to the edge of the view and to the floors
constexpr double leastNameWidth = 44;
constexpr double tapMargin = 7;
constexpr double attributionHeight = 48;  // at the lower edge

constexpr float groundAlpha = 0.88F;

double grown(double length, const MapTheme& theme) {
  return length * theme.sizes.name / MapSizes().name;
}

double nameHeightIn(const MapTheme& theme) { return grown(heightOfName, theme); }

graphics::TextStyle styleOf(const MapTheme& theme, bool isShown) {
  graphics::TextStyle style;
  style.fontFamily = theme.fontFamily;
  style.fontSize = grown(fontSize, theme);
  style.bold = isShown;
  style.color = isShown ? theme.colors.iconSymbol : theme.colors.text;
  return style;
}

std::string noteText(std::size_t count) { return "+" + std::to_string(count); }

}  // namespace

std::optional<double> StackContents::offsetOf(const Map& floor) const {
  for (const StackedFloor& stacked : stack.floors)
    if (*stacked.floor == floor) return stacked.offset;
  return std::nullopt;
}

Insets StackNames::margins(const StackedFloors& stack, const MapTheme& theme) {
  double width = leastNameWidth;
  for (const StackedFloor& floor : stack.floors) {
    const auto size = graphics::measureText(floorLabel(*floor.floor), styleOf(theme, true));
    width = std::max(width, size.width + 2 * namePadding);
  }
  const double note = nameHeightIn(theme) + nameGap;
  return {width + 2 * nameMargin, nameMargin + (stack.floors.back().hidden > 0 ? note : 0), 0,
          attributionHeight + (stack.hiddenBelow > 0 ? note : 0)};
}

std::shared_ptr<Map> StackNames::at(Point point) const {
  std::shared_ptr<Map> nearest;
  double least = std::numeric_limits<double>::max();
  for (const Name& name : drawn_) {
    const Rect reach{{name.rect.minX() - tapMargin, name.rect.minY() - tapMargin},
                     {name.rect.size.width + 2 * tapMargin, name.rect.size.height + 2 * tapMargin}};
    const double away = std::abs(name.rect.midY() - point.y);
    if (!name.floor || !reach.contains(point) || away >= least) continue;
    least = away;
    nearest = name.floor;
  }
  return nearest;
}

void StackNames::clear() {
  drawn_.clear();
  texts_.clear();
}

double StackNames::rightEdge(double otherwise) const {
  return drawn_.empty() ? otherwise : drawn_.front().rect.maxX();
}

std::shared_ptr<const graphics::Image> StackNames::textImage(const std::string& text, bool isShown,
                                                             const MapTheme& theme) {
  for (const Text& known : texts_)
    if (known.text == text && known.isShown == isShown) return known.image;
  texts_.push_back({text, isShown, graphics::makeTextImage(text, styleOf(theme, isShown), scale_)});
  return texts_.back().image;
}

// Returns the names at the heights of their floors, the highest first, and the left edge of the
// floors in the view.
std::vector<StackNames::Name> StackNames::namesOf(const StackContents& contents,
                                                  const FloorProjection& projection, double share,
                                                  double& left) {
  const double step = nameHeightIn(*contents.theme) + nameGap;
  std::vector<Name> names;
  const auto add = [&](const std::shared_ptr<Map>& floor, const std::string& text, double offset,
                       double lower = 0) {
    graphics::Box box = contents.box;
    box.min.z = box.max.z = static_cast<float>(offset * share);
    for (const graphics::Vector3& corner : cornersOf(box))
      if (const auto place = projection.of(corner); place.pointsPerUnit > 0)
        left = std::min(left, place.point.x);
    const ProjectedPlace middle = projection.of(box.center());
    if (!(middle.pointsPerUnit > 0)) return;
    const bool isShown = floor != nullptr && floor == contents.shown;
    names.push_back({floor, middle.point.y + lower, {}, textImage(text, isShown, *contents.theme)});
  };
  const auto& floors = contents.stack.floors;
  for (auto floor = floors.rbegin(); floor != floors.rend(); ++floor) {
    const bool isTop = floor == floors.rbegin();
    if (floor->hidden > 0) {
      const double above = isTop ? floor->offset : (floor - 1)->offset;
      add(nullptr, noteText(floor->hidden), (floor->offset + above) / 2, isTop ? -step : 0);
    }
    add(floor->floor, floorLabel(*floor->floor), floor->offset);
  }
  if (contents.stack.hiddenBelow > 0)
    add(nullptr, noteText(contents.stack.hiddenBelow), floors.front().offset, step);
  return names;
}

void StackNames::place(std::vector<Name>& names, const Room& room, double height,
                       double left) const {
  for (std::size_t i = 1; i < names.size(); ++i)
    names[i].y = std::max(names[i].y, names[i - 1].y + height + nameGap);
  double lowest = room.view.height - room.covered.bottom - attributionHeight - height / 2;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (name->y > room.view.height) continue;  // the floor is below the view
    name->y = std::min(name->y, lowest);
    lowest = name->y - height - nameGap;
  }
  double width = leastNameWidth;
  for (const Name& name : names)
    if (name.image) width = std::max(width, name.image->size().width + 2 * namePadding);
  const double x = std::max(room.covered.left + nameMargin, left - nameMargin - width);
  for (Name& name : names) name.rect = {{x, name.y - height / 2}, {width, height}};
}

void StackNames::arrange(const StackContents& contents, const FloorProjection& projection,
                         const Room& room, double share, double scale) {
  if (scale != scale_) texts_.clear();
  scale_ = scale;
  double left = std::numeric_limits<double>::max();
  drawn_ = namesOf(contents, projection, share, left);
  place(drawn_, room, nameHeightIn(*contents.theme), left);
}

void StackNames::draw(view::Canvas& canvas, const StackContents& contents, double share) const {
  for (const Name& name : drawn_) drawName(canvas, name, contents, share);
}

void StackNames::drawName(view::Canvas& canvas, const Name& name, const StackContents& contents,
                          double share) const {
  const MapTheme& theme = *contents.theme;
  if (name.floor) {
    const bool isShown = name.floor == contents.shown;
    graphics::Color ground = isShown        ? theme.colors.iconInfo
                             : theme.isDark ? theme.walkableOutline()
                                            : theme.colors.halo;
    ground.alpha = groundAlpha * static_cast<float>(share);
    canvas.fill(name.rect, ground, name.rect.size.height / 2);
  }
  if (!name.image) return;
  const graphics::Size size = name.image->size();
  canvas.draw(name.image,
              {{name.rect.midX() - size.width / 2, name.rect.midY() - size.height / 2}, size},
              share);
}

}  // namespace orivanta
