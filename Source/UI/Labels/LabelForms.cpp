#include "Source/UI/Labels/LabelForms.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta {

namespace {

constexpr double symbolGap = 2;          // between symbol and name, points
constexpr double mostLineHeights = 5.5;  // width of a name in one line beside a symbol
constexpr double leastForeshortening = 0.1;

}  // namespace

TextPlane textPlane(const LabelFrame& frame) {
  return {{std::cos(frame.turn), std::sin(frame.turn)},
          std::max(leastForeshortening, std::cos(frame.tilt))};
}

bool fitsInside(const PlaceLabel& label, std::size_t lines, const ProjectedPlace& place,
                const TextPlane& plane, double tolerance) {
  const graphics::Size size = label.names[lines - 1];
  const double height = size.height * tolerance / (place.pointsPerUnit * plane.upright);
  const double width = size.width * tolerance / place.pointsPerUnit;
  return label.room->freeWidth(height, plane.direction) >= width;
}

std::optional<std::size_t> linesInside(const PlaceLabel& label, const ProjectedPlace& place,
                                       const TextPlane& plane) {
  if (!label.room) return std::nullopt;
  for (std::size_t lines = 1; lines <= label.names.size(); ++lines)
    if (fitsInside(label, lines, place, plane, 1)) return lines;
  return std::nullopt;
}

std::size_t linesBeside(const PlaceLabel& label) {
  if (label.names.size() < 2) return 1;
  const graphics::Size line = label.names.front();
  return line.width > mostLineHeights * line.height ? 2 : 1;
}

graphics::Rect symbolRect(const PlaceLabel& label, graphics::Point anchor) {
  const double size = label.symbolSize;
  return {{anchor.x - size / 2, anchor.y - size / 2}, {size, size}};
}

graphics::Rect nameRect(const PlaceLabel& label, const LabelForm& form, graphics::Point anchor) {
  const graphics::Size size = label.names[form.lines - 1];
  const double away = label.symbolSize / 2 + symbolGap;
  graphics::Point middle = anchor;
  if (form.side == LabelSide::right) middle.x += away + size.width / 2;
  if (form.side == LabelSide::left) middle.x -= away + size.width / 2;
  if (form.side == LabelSide::below) middle.y += away + size.height / 2;
  if (form.side == LabelSide::above) middle.y -= away + size.height / 2;
  return {{middle.x - size.width / 2, middle.y - size.height / 2}, size};
}

}  // namespace orivanta
