#include "Apps/Viewer/Panels/StepIcon.hpp"

#include <cmath>
#include <numbers>

namespace orivanta::viewer {

namespace {

using guidance::ConnectorKind;
using guidance::Sharpness;
using guidance::Step;

constexpr double side = 24;

// The arrows point to the left; those to the right are mirrored.

Icon straight() { return {{{{12, 21}, {12, 4}}, {{5.5, 10.5}, {12, 4}, {18.5, 10.5}}}}; }

Icon turnLeft() {
  return {{{{17, 21}, {17, 12.5}, {16.4, 10.3}, {14.9, 8.8}, {12.7, 8.2}, {4, 8.2}},
           {{9.5, 2.7}, {4, 8.2}, {9.5, 13.7}}}};
}

Icon bearLeft() {
  return {{{{15, 21}, {15, 14.5}, {6.2, 5.2}}, {{6.2, 12.8}, {6.2, 5.2}, {13.8, 5.2}}}};
}

Icon sharpLeft() {
  return {{{{17, 21}, {17, 4.5}, {5.5, 14.5}}, {{6.1, 9}, {5.5, 14.5}, {11, 14.6}}}};
}

Icon around() {
  return {{{{17, 21}, {17, 9}, {15.6, 5.5}, {12, 4}, {8.4, 5.5}, {7, 9}, {7, 17}},
           {{2.5, 12.5}, {7, 17}, {11.5, 12.5}}}};
}

Icon lift() {
  return {{{{4, 2.5}, {20, 2.5}, {20, 21.5}, {4, 21.5}, {4, 2.5}},
           {{8.3, 10}, {12, 6.3}, {15.7, 10}},
           {{8.3, 14}, {12, 17.7}, {15.7, 14}}},
          2.2};
}

Stroke arrowUp() { return {{6, 12}, {6, 3}, {2.8, 6.2}, {6, 3}, {9.2, 6.2}}; }
Stroke arrowDown() { return {{18, 3}, {18, 12}, {14.8, 8.8}, {18, 12}, {21.2, 8.8}}; }

// Connectors rise to the right; those down are mirrored.

Icon stairs() {
  return {{{{3, 21}, {8, 21}, {8, 16}, {13, 16}, {13, 11}, {18, 11}, {18, 6}, {22, 6}}}, 2.4};
}

Icon escalator() {
  return {{{{2, 21}, {7, 21}, {17.5, 10}, {22, 10}}, {{7.5, 14.5}, {15.5, 6}}}, 2.4};
}

Icon ramp() { return {{{{2, 20.5}, {22, 20.5}, {22, 11.5}, {2, 20.5}}}, 2.4}; }

Icon upAndDown() {
  return {{{{7, 20}, {7, 4}, {3, 8}, {7, 4}, {11, 8}},
           {{17, 4}, {17, 20}, {13, 16}, {17, 20}, {21, 16}}},
          2.4};
}

Icon pin() {
  constexpr int parts = 20;
  constexpr double radius = 7;
  Stroke outline{{12, 22}};
  for (int i = 0; i <= parts; ++i) {
    const double angle = (0.85 + 1.3 * i / parts) * std::numbers::pi;  // the rest is the tip
    outline.push_back({12 + radius * std::cos(angle), 9.5 + radius * std::sin(angle)});
  }
  outline.push_back({12, 22});
  return {{outline, {{11.5, 9.5}, {12.5, 9.5}}}};
}

Icon mirrored(Icon icon) {
  for (Stroke& stroke : icon.strokes)
    for (graphics::Point& point : stroke) point.x = side - point.x;
  return icon;
}

// A walk that does not begin straight on has a side; a turn comes after that.
Icon beginning(guidance::Side way) {
  switch (way) {
    case guidance::Side::left:
      return turnLeft();
    case guidance::Side::right:
      return mirrored(turnLeft());
    case guidance::Side::behind:
      return around();
    default:
      return straight();
  }
}

Icon turnIcon(const Step& step) {
  if (step.kind == Step::Kind::leave && step.side != guidance::Side::none)
    return beginning(step.side);
  if (step.turnDegrees == 0) return straight();
  Icon icon = turnLeft();
  const bool isSingle = !step.secondTurnDegrees;
  if (isSingle && step.sharpness == Sharpness::bear) icon = bearLeft();
  if (isSingle && step.sharpness == Sharpness::sharp) icon = sharpLeft();
  if (isSingle && step.sharpness == Sharpness::around) icon = around();
  return step.turnDegrees < 0 ? mirrored(std::move(icon)) : icon;
}

Icon slope(Icon icon, bool isUp) {
  if (!isUp) icon = mirrored(std::move(icon));
  icon.strokes.push_back(isUp ? arrowUp() : arrowDown());
  return icon;
}

Icon rideIcon(const guidance::Itinerary& itinerary, const Step& step) {
  const guidance::Leg& leg = itinerary.legs[step.leg];
  int floors = 0;
  for (std::size_t i = step.leg; i <= step.lastLeg; ++i) floors += itinerary.legs[i].floorsPassed;
  switch (leg.connectorKind) {
    case ConnectorKind::lift:
      return lift();
    case ConnectorKind::stairs:
      return slope(stairs(), floors >= 0);
    case ConnectorKind::escalator:
      return slope(escalator(), floors >= 0);
    case ConnectorKind::ramp:
      return slope(ramp(), floors >= 0);
    default:
      return upAndDown();
  }
}

}  // namespace

Icon stepIcon(const guidance::Itinerary& itinerary, const Step& step) {
  if (step.kind == Step::Kind::ride) return rideIcon(itinerary, step);
  return step.kind == Step::Kind::arrive ? pin() : turnIcon(step);
}

}  // namespace orivanta::viewer
