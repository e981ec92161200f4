#include "Apps/Package/Symbols.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>

namespace orivanta::package {

namespace {

using Marks = std::vector<Mark>;

Mark around(const Outline& points, double margin, std::function<double(Point)> distance) {
  Mark mark{std::move(distance), points.front(), points.front()};
  for (const Point point : points) {
    mark.least = {std::min(mark.least.x, point.x), std::min(mark.least.y, point.y)};
    mark.most = {std::max(mark.most.x, point.x), std::max(mark.most.y, point.y)};
  }
  mark.least = mark.least - Point{margin, margin};
  mark.most = mark.most + Point{margin, margin};
  return mark;
}

Mark disc(double x, double y, double radius) {
  const Point middle = {x, y};
  return around({middle}, radius, [=](Point point) { return distance(point, middle) - radius; });
}

Mark ring(double x, double y, double radius, double width) {
  const Point middle = {x, y};
  return around({middle}, radius + width / 2, [=](Point point) {
    return std::abs(distance(point, middle) - radius) - width / 2;
  });
}

// A rectangle with rounded corners.
Mark box(double left, double top, double right, double bottom, double corner = 0.03) {
  const Point middle = {(left + right) / 2, (top + bottom) / 2};
  const Point half = {(right - left) / 2 - corner, (bottom - top) / 2 - corner};
  return around({{left, top}, {right, bottom}}, 0, [=](Point point) {
    const Point beyond = {std::abs(point.x - middle.x) - half.x,
                          std::abs(point.y - middle.y) - half.y};
    return package::length({std::max(beyond.x, 0.0), std::max(beyond.y, 0.0)}) +
           std::min(std::max(beyond.x, beyond.y), 0.0) - corner;
  });
}

// A line with round ends and joins.
Mark line(double width, const Outline& points) {
  return around(points, width / 2, [=](Point point) {
    double nearest = distance(points.front(), point);
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
      nearest = std::min(nearest, distanceToSegment(points[i], points[i + 1], point));
    return nearest - width / 2;
  });
}

Mark area(const Outline& outline) {
  constexpr double corner = 0.02;
  return around(outline, corner, [=](Point point) {
    const double away = distanceToBorder(outline, point);
    return (contains(outline, point) ? -away : away) - corner;
  });
}

Mark pale(Mark mark) {
  mark.tone = Tone::pale;
  return mark;
}

// An arc around a point between two angles in degrees, clockwise from the right.
Outline arc(Point middle, double radius, double from, double to) {
  constexpr int parts = 24;
  Outline points;
  for (int i = 0; i <= parts; ++i) {
    const double angle = (from + (to - from) * i / parts) * std::numbers::pi / 180;
    points.push_back(middle + Point{radius * std::cos(angle), radius * std::sin(angle)});
  }
  return points;
}

Outline mirrored(Outline outline) {
  for (Point& point : outline) point.x = -point.x;
  return outline;
}

// The marks and their mirror images.
Marks both(const Marks& marks) {
  Marks all = marks;
  for (const Mark& mark : marks)
    all.push_back({[distance = mark.distance](Point point) {
                     return distance({-point.x, point.y});
                   },
                   {-mark.most.x, mark.least.y},
                   {-mark.least.x, mark.most.y},
                   mark.tone});
  return all;
}

Marks operator+(Marks first, const Marks& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

using Symbols = std::map<std::string_view, Marks>;

Symbols shoppingSymbols() {
  const Outline shirt = {{0.16, -0.42}, {0.5, -0.22}, {0.4, 0.02}, {0.26, -0.04}, {0.26, 0.44}};
  Outline wholeShirt = mirrored(shirt);
  wholeShirt.insert(wholeShirt.end(), shirt.rbegin(), shirt.rend());
  const Outline page = {{0.04, -0.26}, {0.2, -0.35}, {0.52, -0.33},
                        {0.52, 0.33},  {0.2, 0.31},  {0.04, 0.4}};
  return {
      {"department", Marks{area({{-0.42, -0.44}, {0.42, -0.44}, {0.52, -0.14}, {-0.52, -0.14}}),
                           box(-0.44, -0.1, 0.44, 0.46), pale(box(-0.1, 0.08, 0.1, 0.47))} +
                         both({pale(box(0.18, 0.02, 0.36, 0.2))})},
      {"clothing", {area(wholeShirt), pale(disc(0, -0.46, 0.13))}},
      {"shoes",
       {area({{-0.5, -0.3},
              {-0.24, -0.3},
              {-0.1, -0.08},
              {0.24, 0.04},
              {0.48, 0.14},
              {0.5, 0.24},
              {-0.5, 0.24}}),
        line(0.08, {{-0.48, 0.36}, {0.48, 0.36}}),
        pale(line(0.04, {{-0.16, 0.06}, {-0.04, -0.08}})),
        pale(line(0.04, {{-0.02, 0.1}, {0.1, -0.03}}))}},
      {"bags",
       {ring(0, -0.16, 0.22, 0.07), box(-0.44, -0.16, 0.44, 0.44, 0.1),
        pale(line(0.04, {{-0.44, 0.06}, {0.44, 0.06}})), pale(disc(0, 0.06, 0.07))}},
      {"jewelry",
       {area({{-0.3, -0.36}, {0.3, -0.36}, {0.5, -0.1}, {0, 0.48}, {-0.5, -0.1}}),
        pale(line(0.03, {{-0.5, -0.1}, {0.5, -0.1}})),
        pale(line(0.03, {{0, 0.46}, {-0.18, -0.1}, {0, -0.36}, {0.18, -0.1}, {0, 0.46}}))}},
      {"kids", both({disc(0.31, -0.29, 0.17)}) +
                   Marks{disc(0, 0.06, 0.43), pale(disc(0, 0.22, 0.18)), disc(0, 0.16, 0.06)} +
                   both({pale(disc(0.16, -0.06, 0.05))})},
      {"home",
       {area({{0, -0.48}, {0.54, -0.02}, {-0.54, -0.02}}), box(-0.38, -0.08, 0.38, 0.46),
        pale(box(-0.1, 0.12, 0.1, 0.48))}},
      {"books", {area(page), area(mirrored(page))}},
      {"toys", Marks{box(-0.42, -0.42, 0.42, 0.42, 0.12), pale(disc(0, 0, 0.08))} +
                   both({pale(disc(0.22, -0.22, 0.08)), pale(disc(0.22, 0.22, 0.08))})},
      {"tech",
       {box(-0.52, -0.4, 0.52, 0.22, 0.06), pale(box(-0.44, -0.32, 0.44, 0.14)),
        box(-0.06, 0.2, 0.06, 0.4), box(-0.24, 0.36, 0.24, 0.44)}},
      {"music",
       {disc(-0.28, 0.3, 0.15), disc(0.26, 0.22, 0.15),
        line(0.07, {{-0.165, 0.3}, {-0.165, -0.34}, {0.375, -0.42}, {0.375, 0.22}}),
        line(0.13, {{-0.14, -0.3}, {0.35, -0.38}})}},
      {"gifts", both({ring(0.13, -0.34, 0.11, 0.06)}) +
                    Marks{box(-0.42, -0.02, 0.42, 0.46), box(-0.5, -0.24, 0.5, -0.04),
                          pale(box(-0.06, -0.24, 0.06, 0.46, 0))}},
      {"sport",
       {disc(0.34, -0.36, 0.11),
        area({{-0.54, 0.4}, {-0.16, -0.3}, {0.06, 0.04}, {0.18, -0.14}, {0.54, 0.4}}),
        pale(area({{-0.16, -0.24}, {-0.07, -0.1}, {-0.16, -0.02}, {-0.24, -0.1}}))}},
      {"beauty",
       {box(-0.22, -0.1, 0.22, 0.48, 0.09), box(-0.08, -0.28, 0.08, 0),
        box(-0.16, -0.46, 0.16, -0.26), pale(disc(0, 0.22, 0.11)),
        pale(area({{0, -0.02}, {0.08, 0.16}, {-0.08, 0.16}}))}},
      {"groceries", both({disc(0.16, 0.06, 0.28), disc(0.1, 0.22, 0.24)}) +
                        Marks{line(0.06, {{0, -0.12}, {0.03, -0.34}}),
                              area({{0.06, -0.3}, {0.18, -0.48}, {0.38, -0.46}, {0.26, -0.3}})}},
  };
}

Symbols leisureSymbols() {
  Marks petals;
  for (std::size_t i = 0; i < 6; ++i) {
    const Point middle = arc({0, -0.14}, 0.22, 0, 360)[4 * i];
    petals.push_back(disc(middle.x, middle.y, 0.13));
  }
  const auto steam = [](double x) {
    return line(0.05, {{x, -0.26}, {x + 0.05, -0.34}, {x, -0.42}, {x + 0.05, -0.5}});
  };
  return {
      {"cafes",
       {ring(0.3, 0.06, 0.14, 0.07),
        area({{-0.42, -0.14},
              {0.28, -0.14},
              {0.22, 0.28},
              {0.08, 0.36},
              {-0.22, 0.36},
              {-0.36, 0.28}}),
        box(-0.5, 0.42, 0.38, 0.5), steam(-0.24), steam(-0.04)}},
      {"restaurants",
       {line(0.07, {{-0.22, -0.14}, {-0.22, 0.47}}),
        line(0.06, {{-0.36, -0.46}, {-0.36, -0.2}, {-0.22, -0.08}, {-0.08, -0.2}, {-0.08, -0.46}}),
        line(0.06, {{-0.22, -0.46}, {-0.22, -0.1}}), line(0.07, {{0.2, 0}, {0.2, 0.47}}),
        area({{0.17, -0.46}, {0.26, -0.4}, {0.33, -0.24}, {0.33, 0.06}, {0.17, 0.06}})}},
      {"street-food",
       {line(0.05, {{-0.06, -0.14}, {0.3, -0.5}}), line(0.05, {{0.12, -0.14}, {0.46, -0.42}}),
        area(arc({0, 0}, 0.44, 0, 180)), box(-0.52, -0.06, 0.52, 0.04), box(-0.2, 0.38, 0.2, 0.5)}},
      {"sweets",
       {area({{-0.24, 0.02}, {0.24, 0.02}, {0, 0.5}}), disc(0, -0.2, 0.28),
        pale(line(0.03, {{-0.3, 0.02}, {0.3, 0.02}})),
        pale(line(0.03, {{-0.1, 0.04}, {0.08, 0.34}})),
        pale(line(0.03, {{0.1, 0.04}, {-0.08, 0.34}})), pale(disc(-0.1, -0.3, 0.06))}},
      {"bars",
       {line(0.04, {{0.06, -0.2}, {0.26, -0.52}}), area({{-0.42, -0.36}, {0.42, -0.36}, {0, 0.1}}),
        line(0.07, {{0, 0.06}, {0, 0.42}}), box(-0.24, 0.4, 0.24, 0.48),
        pale(disc(-0.08, -0.22, 0.07))}},
      {"cinema",
       {box(-0.48, -0.14, 0.48, 0.42, 0.05),
        area({{-0.47, -0.26}, {0.42, -0.46}, {0.46, -0.34}, {-0.44, -0.15}}),
        pale(line(0.05, {{-0.24, -0.18}, {-0.14, -0.36}})),
        pale(line(0.05, {{0.08, -0.25}, {0.18, -0.43}})),
        pale(area({{-0.08, 0.02}, {0.14, 0.14}, {-0.08, 0.26}}))}},
      {"culture",
       {disc(0, 0, 0.46), pale(disc(0.26, 0.2, 0.13)), pale(disc(-0.24, 0.12, 0.08)),
        pale(disc(-0.22, -0.16, 0.08)), pale(disc(0.02, -0.28, 0.08)),
        pale(disc(0.26, -0.12, 0.08))}},
      {"play",
       {disc(0, -0.16, 0.32), area({{0, 0.14}, {0.07, 0.22}, {-0.07, 0.22}}),
        line(0.035, {{0, 0.22}, {0.05, 0.3}, {-0.03, 0.4}, {0.02, 0.52}}),
        pale(disc(-0.11, -0.27, 0.07))}},
      {"fitness", Marks{box(-0.3, -0.05, 0.3, 0.05)} + both({box(0.26, -0.28, 0.4, 0.28, 0.05),
                                                             box(0.42, -0.17, 0.54, 0.17, 0.05)})},
      {"gardens", petals + Marks{line(0.06, {{0, 0.1}, {0, 0.5}}), pale(disc(0, -0.14, 0.12)),
                                 area({{0, 0.42}, {0.1, 0.26}, {0.3, 0.22}, {0.2, 0.38}})}},
  };
}

Symbols serviceSymbols() {
  Outline hood = arc({0, -0.06}, 0.38, 180, 270);
  hood.push_back({0, -0.06});
  return {
      {"money", Marks{area({{0, -0.46}, {0.5, -0.22}, {-0.5, -0.22}}), box(-0.06, -0.14, 0.06, 0.3),
                      box(-0.5, 0.34, 0.5, 0.46)} +
                    both({box(0.28, -0.14, 0.4, 0.3)})},
      {"repair",
       {line(0.15, {{-0.3, 0.3}, {0.2, -0.2}}), disc(0.26, -0.26, 0.22), disc(-0.3, 0.3, 0.14),
        pale(line(0.16, {{0.29, -0.29}, {0.5, -0.5}})), pale(disc(-0.3, 0.3, 0.06))}},
      {"hair", both({ring(0.22, 0.32, 0.14, 0.07), line(0.08, {{0.14, 0.2}, {-0.2, -0.46}})}) +
                   Marks{pale(disc(0, -0.06, 0.03))}},
      {"travel",
       {box(-0.5, -0.34, 0.5, 0.36, 0.05),
        pale(line(0.05, {{-0.48, -0.28}, {0, 0.08}, {0.48, -0.28}}))}},
      {"medical", both({ring(0.27, 0.04, 0.2, 0.07), line(0.06, {{0.46, 0}, {0.52, -0.2}}),
                        line(0.06, {{0, -0.06}, {0.08, -0.02}})})},
      {"information",
       {disc(0, -0.36, 0.1), box(-0.08, -0.16, 0.08, 0.44), box(-0.18, -0.16, 0.02, -0.06),
        box(-0.2, 0.36, 0.2, 0.46)}},
      {"toilets",
       {line(0.03, {{0, -0.46}, {0, 0.46}}), disc(-0.27, -0.37, 0.1),
        box(-0.4, -0.24, -0.14, 0.12, 0.06), box(-0.34, 0, -0.2, 0.46), disc(0.27, -0.37, 0.1),
        area({{0.22, -0.22}, {0.32, -0.22}, {0.43, 0.14}, {0.11, 0.14}}),
        box(0.2, 0.1, 0.34, 0.46)}},
      {"baby", both({ring(0.2, 0.42, 0.09, 0.05)}) +
                   Marks{area(arc({0, -0.02}, 0.38, 0, 180)), area(hood),
                         line(0.05, {{0.36, -0.02}, {0.46, -0.2}, {0.54, -0.2}})}},
      {"prayer",
       {box(-0.13, -0.06, 0.13, 0.44), box(-0.32, 0.42, 0.32, 0.5),
        area({{0, -0.5}, {0.1, -0.28}, {0.06, -0.16}, {-0.06, -0.16}, {-0.1, -0.28}})}},
      {"cash", Marks{box(-0.54, -0.3, 0.54, 0.3, 0.05), pale(ring(0, 0, 0.14, 0.05))} +
                   both({pale(disc(0.37, 0, 0.05))})},
      {"lockers",
       {ring(-0.26, 0, 0.19, 0.1), line(0.1, {{-0.06, 0}, {0.48, 0}}),
        line(0.09, {{0.28, 0}, {0.28, 0.16}}), line(0.09, {{0.48, 0}, {0.48, 0.2}})}},
      {"first-aid", {box(-0.16, -0.46, 0.16, 0.46), box(-0.46, -0.16, 0.46, 0.16)}},
      {"entrances",
       {box(-0.08, -0.5, 0.46, 0.5, 0.04), pale(box(0, -0.42, 0.38, 0.42)),
        line(0.09, {{-0.52, 0}, {0.18, 0}}), line(0.09, {{0.02, -0.17}, {0.19, 0}, {0.02, 0.17}})}},
      {"station",
       both({line(0.06, {{0.18, 0.26}, {0.34, 0.5}})}) +
           Marks{box(-0.34, -0.5, 0.34, 0.34, 0.14), pale(box(-0.25, -0.34, 0.25, -0.02, 0.05))} +
           both({pale(disc(0.2, 0.16, 0.06))})},
      {"vehicles", Marks{box(-0.1, -0.36, 0.1, -0.24), area({{-0.52, 0.06},
                                                             {-0.36, 0.02},
                                                             {-0.22, -0.22},
                                                             {0.22, -0.22},
                                                             {0.36, 0.02},
                                                             {0.52, 0.06},
                                                             {0.52, 0.26},
                                                             {-0.52, 0.26}})} +
                       both({disc(0.28, 0.28, 0.14), pale(disc(0.28, 0.28, 0.06)),
                             pale(area({{0.04, -0.13}, {0.17, -0.13}, {0.24, 0}, {0.04, 0}}))})},
  };
}

Symbols allSymbols() {
  Symbols symbols = shoppingSymbols();
  symbols.merge(leisureSymbols());
  symbols.merge(serviceSymbols());
  return symbols;
}

}  // namespace

std::span<const Mark> symbolOf(std::string_view category) {
  static const Symbols symbols = allSymbols();
  const auto found = symbols.find(category);
  return found == symbols.end() ? std::span<const Mark>() : found->second;
}

}  // namespace orivanta::package
