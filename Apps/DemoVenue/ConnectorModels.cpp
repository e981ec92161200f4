#include "Apps/DemoVenue/ConnectorModels.hpp"

#include <algorithm>

#include "Apps/DemoVenue/Models.hpp"
#include "Apps/DemoVenue/Package.hpp"
#include "Apps/DemoVenue/Palette.hpp"

namespace orivanta::demo {

namespace {

using package::Model;

constexpr double flightTop = 4.4;

Point middleOf(const Outline& outline) {
  Point sum;
  for (const Point point : outline) sum = sum + point;
  return sum * (1.0 / static_cast<double>(outline.size()));
}

// Cuts off the part of an outline to the right of the line through a point (Sutherland and Hodgman,
// 1974).
Outline leftOf(const Outline& outline, Point through, Point direction) {
  Outline kept;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point a = outline[i];
    const Point b = outline[(i + 1) % outline.size()];
    const double sideA = cross(direction, a - through);
    const double sideB = cross(direction, b - through);
    if (sideA >= 0.0) kept.push_back(a);
    if ((sideA > 0.0 && sideB < 0.0) || (sideA < 0.0 && sideB > 0.0))
      kept.push_back(a + (b - a) * (sideA / (sideA - sideB)));
  }
  return kept;
}

// The lowest and highest position of an outline along a direction of length 1.
std::pair<double, double> reach(const Outline& outline, Point along) {
  double least = dot(outline.front(), along);
  double most = least;
  for (const Point point : outline) {
    least = std::min(least, dot(point, along));
    most = std::max(most, dot(point, along));
  }
  return {least, most};
}

void addSteps(Model& model, const Outline& outline, Point along, int count) {
  const auto [least, most] = reach(outline, along);
  const Point across = {-along.y, along.x};
  for (int i = 0; i < count; ++i) {
    const double from = least + (most - least) * i / count;
    const double to = least + (most - least) * (i + 1) / count;
    const Outline step = leftOf(leftOf(outline, along * from, across * -1.0), along * to, across);
    model.prism(step, 0.2, floorTop + (flightTop - floorTop) * (i + 1) / count);
  }
}

void addIncline(Model& model, const Outline& outline, Point along, double top) {
  const auto [least, most] = reach(outline, along);
  const double low = least;
  const double high = most;
  model.slope(outline, 0.2, [=](Point point) {
    return floorTop + (top - floorTop) * (dot(point, along) - low) / (high - low);
  });
}

void addLift(Model& model, const std::string& name, const Stop& stop) {
  model.use({name, palette::shaft});
  model.prism(stop.outline, 0.2, 5.0);
  // The doors: a shallow box on the wall that faces the landing.
  model.use({"ElevatorDoors", palette::elevatorDoors});
  const Point middle = middleOf(stop.outline);
  for (std::size_t i = 0; i < stop.outline.size(); ++i) {
    const Point a = stop.outline[i];
    const Point b = stop.outline[(i + 1) % stop.outline.size()];
    const Point outward = Point{(b - a).y, -(b - a).x} * (1.0 / distance(a, b));
    if (dot(stop.node - middle, outward) < 0.9 * distance(stop.node, middle)) continue;
    for (const double share : {0.12, 0.56}) {
      const Point left = a + (b - a) * share;
      const Point right = a + (b - a) * (share + 0.32);
      model.prism({left, left + outward * 0.15, right + outward * 0.15, right}, floorTop, 3.6);
    }
  }
}

void addStop(Model& model, const Floor& floor, const Connector& connector, const Stop& stop) {
  const std::string name = polygonId(floor.id, connector.id);
  const auto toward = [](Point from, Point to) { return (to - from) * (1.0 / distance(from, to)); };
  switch (connector.kind) {
    case ConnectorKind::elevator:
      addLift(model, name, stop);
      return;
    case ConnectorKind::stairs:
      model.use({name, palette::stone});
      addSteps(model, stop.outline, toward(stop.way.front(), stop.node), 9);
      return;
    case ConnectorKind::escalator:
    case ConnectorKind::ramp: {
      const Point along = toward(connector.stops.front().node, connector.stops.back().node);
      const bool escalator = connector.kind == ConnectorKind::escalator;
      model.use({name, {1.0, 1.0, 1.0}, escalator ? "steps.png" : "deck.png"});
      addIncline(model, stop.outline, along, escalator ? flightTop : 3.0);
      return;
    }
  }
}

// Whether a connector starts on this floor where another one arrives.
bool covered(const Plan& plan, const Floor& floor, Point point) {
  for (const Connector& connector : plan.connectors)
    for (const Stop& stop : connector.stops)
      if (stop.floor == floor.id && contains(stop.outline, point)) return true;
  return false;
}

}  // namespace

void addConnectors(package::Model& model, const Plan& plan, const Floor& floor) {
  for (const Connector& connector : plan.connectors)
    for (const Stop& stop : connector.stops) {
      if (stop.floor != floor.id) continue;
      if (!stop.outline.empty()) {
        addStop(model, floor, connector, stop);
        continue;
      }
      // An escalator arrives through an opening in the floor.
      const Outline& below = connector.stops.front().outline;
      if (covered(plan, floor, middleOf(below))) continue;
      model.use({"Opening", palette::opening});
      model.top(below, floorTop + 0.03);
    }
}

}  // namespace orivanta::demo
