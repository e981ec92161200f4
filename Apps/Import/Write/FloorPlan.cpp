#include "Apps/Import/Write/FloorPlan.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <string_view>

#include "Apps/Import/Geometry/InnerPoint.hpp"
#include "Apps/Import/Model/FloorModel.hpp"
#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Package/Palette.hpp"

namespace orivanta::importer {

namespace {

namespace palette = package::palette;
using package::Color;

constexpr double margin = 2.0;  // meters around the drawing

std::string hex(Color color) {
  const auto byte = [](double share) { return static_cast<int>(std::lround(share * 255.0)); };
  return fmt::format("#{:02X}{:02X}{:02X}", byte(color.red), byte(color.green), byte(color.blue));
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '&':
        result += "&amp;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= ' ') result += c;
    }
  }
  return result;
}

// The number of columns that a text takes: letters of Chinese, Japanese and Korean take two.
double columnsOf(std::string_view text) {
  double columns = 0.0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) == 0x80U) continue;
    columns += byte >= 0xE3U ? 2.0 : 1.0;
  }
  return columns;
}

// Writes the plan of one storey. y points down in SVG, so it is negated.
class PlanWriter {
 public:
  PlanWriter(const Building& building, double level, const PlanOptions& options)
      : building_(building), level_(level), options_(options) {
    for (const Place& place : building.places) places_.emplace(place.id, &place);
    measure();
  }

  std::string write() {
    const double width = std::max(most_.x - least_.x, 1.0) + 2.0 * margin;
    const double height = std::max(most_.y - least_.y, 1.0) + 2.0 * margin;
    unit_ = std::max(width, height) / 1000.0;  // about a pixel on a large screen
    put("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"{:.2f} {:.2f} {:.2f} {:.2f}\" "
        "font-family=\"sans-serif\" stroke-linejoin=\"round\">\n",
        least_.x - margin, -most_.y - margin, width, height + 26.0 * unit_);
    put("<rect x=\"{:.2f}\" y=\"{:.2f}\" width=\"{:.2f}\" height=\"{:.2f}\" fill=\"{}\"/>\n",
        least_.x - margin, -most_.y - margin, width, height + 26.0 * unit_, hex(palette::backdrop));
    drawShapes();
    drawDoors();
    if (options_.network) drawNetwork();
    if (options_.names) drawNames();
    drawScaleBar();
    for (const PlanMark& mark : options_.marks) drawMark(mark);
    text_ += "</svg>\n";
    return std::move(text_);
  }

 private:
  template <typename... Values>
  void put(fmt::format_string<Values...> format, Values&&... values) {
    fmt::format_to(std::back_inserter(text_), format, std::forward<Values>(values)...);
  }

  void reach(Point point) {
    least_ = {std::min(least_.x, point.x), std::min(least_.y, point.y)};
    most_ = {std::max(most_.x, point.x), std::max(most_.y, point.y)};
  }

  void measure() {
    for (const Storey& storey : building_.storeys)
      if (storey.ordinal == level_)
        for (const Polygon& polygon : storey.footprint)
          for (const Point point : polygon.outer) reach(point);
    for (const Area& area : building_.areas)
      if (area.level == level_)
        for (const Polygon& polygon : area.shape)
          for (const Point point : polygon.outer) reach(point);
    for (const Node& node : building_.network.nodes)
      if (node.level == level_) reach(node.position);
    for (const PlanMark& mark : options_.marks)
      if (std::isfinite(mark.position.x) && std::isfinite(mark.position.y)) reach(mark.position);
    if (least_.x > most_.x) least_ = most_ = {0.0, 0.0};
  }

  void drawRings(const std::vector<Polygon>& shape, std::string_view style) {
    text_ += "<path d=\"";
    const auto ring = [&](const Outline& outline) {
      char command = 'M';
      for (const Point point : outline) {
        put("{}{:.2f} {:.2f}", command, point.x, -point.y);
        command = 'L';
      }
      text_ += 'Z';
    };
    for (const Polygon& polygon : shape) {
      ring(polygon.outer);
      for (const Outline& hole : polygon.holes) ring(hole);
    }
    put("\" fill-rule=\"evenodd\" {}/>\n", style);
  }

  const Place* placeOf(const Area& area) const {
    const auto found = places_.find(area.place);
    return found == places_.end() ? nullptr : found->second;
  }

  void drawShapes() {
    for (const Storey& storey : building_.storeys)
      if (storey.ordinal == level_)
        drawRings(storey.footprint, fmt::format("fill=\"{}\"", hex(palette::slab)));
    constexpr std::array order = {AreaKind::unknown,       AreaKind::walkway,   AreaKind::ramp,
                                  AreaKind::movingWalkway, AreaKind::room,      AreaKind::opening,
                                  AreaKind::stairs,        AreaKind::escalator, AreaKind::elevator,
                                  AreaKind::obstacle,      AreaKind::wall};
    for (const AreaKind kind : order)
      for (const Area& area : building_.areas) {
        if (area.level != level_ || area.kind != kind || area.shape.empty()) continue;
        const Color fill = colorOf(area, placeOf(area));
        const bool walkable = kind == AreaKind::walkway || kind == AreaKind::unknown;
        const Color edge = package::mixed(fill, palette::text, walkable ? 0.2 : 0.55);
        drawRings(area.shape, fmt::format("fill=\"{}\" stroke=\"{}\" stroke-width=\"{:.3f}\"",
                                          hex(fill), hex(edge), (walkable ? 0.6 : 1.1) * unit_));
      }
    for (const Line& line : building_.lines)
      if (line.kind == LineKind::wall &&
          std::find(line.levels.begin(), line.levels.end(), level_) != line.levels.end())
        drawLine(line.points, hex(palette::wall), 1.6 * unit_);
  }

  void drawLine(const std::vector<Point>& points, std::string_view color, double width) {
    text_ += "<polyline points=\"";
    for (const Point point : points) put("{:.2f},{:.2f} ", point.x, -point.y);
    put("\" fill=\"none\" stroke=\"{}\" stroke-width=\"{:.3f}\"/>\n", color, width);
  }

  void drawDoors() {
    for (const Door& door : building_.doors) {
      if (door.level != level_) continue;
      const bool outer = door.kind == DoorKind::entrance || door.kind == DoorKind::emergency;
      put("<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{:.3f}\" fill=\"{}\" stroke=\"{}\" "
          "stroke-width=\"{:.3f}\"/>\n",
          door.position.x, -door.position.y, std::clamp(2.0 * unit_, 0.15, 0.5),
          door.guessed ? hex(palette::casing)
          : outer      ? "#14694A"
                       : hex(palette::text),
          outer ? "#14694A" : hex(palette::text), 0.6 * unit_);
    }
  }

  void drawNetwork() {
    const Network& network = building_.network;
    put("<g stroke=\"{}\" stroke-width=\"{:.3f}\">\n", hex(palette::route), 0.9 * unit_);
    for (const Edge& edge : network.edges) {
      const Node& from = network.nodes[edge.from];
      const Node& to = network.nodes[edge.to];
      if (from.level != level_ || to.level != level_) continue;
      put("<line x1=\"{:.2f}\" y1=\"{:.2f}\" x2=\"{:.2f}\" y2=\"{:.2f}\"/>\n", from.position.x,
          -from.position.y, to.position.x, -to.position.y);
    }
    text_ += "</g>\n";
    for (const Node& node : network.nodes)
      if (node.level == level_ && node.kind == NodeKind::boarding)
        put("<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{:.3f}\" fill=\"{}\"/>\n", node.position.x,
            -node.position.y, 2.4 * unit_, hex(palette::pin));
  }

  void drawNames() {
    put("<g fill=\"{}\" text-anchor=\"middle\">\n", hex(palette::text));
    for (const Area& area : building_.areas) {
      const Place* place = area.level == level_ ? placeOf(area) : nullptr;
      if (place != nullptr && !place->names.generated && !area.shape.empty() &&
          area.kind == AreaKind::room)
        drawName(place->names.name, area);
    }
    text_ += "</g>\n";
  }

  void drawName(const std::string& name, const Area& area) {
    const Point at = innerPoint(area.shape);
    double room = 0.0;
    for (const Polygon& polygon : area.shape)
      if (package::contains(polygon.outer, at)) room = package::distanceToBorder(polygon.outer, at);
    const double size = std::min(2.6 * room / std::max(columnsOf(name) * 0.55, 1.0), 12.0 * unit_);
    if (size < 3.0 * unit_ || size <= 0.0) return;
    put("<text x=\"{:.2f}\" y=\"{:.2f}\" font-size=\"{:.3f}\">{}</text>\n", at.x,
        -at.y + size * 0.35, size, escaped(name));
  }

  // A round length of about a tenth of the width.
  void drawScaleBar() {
    const double aim = (most_.x - least_.x) / 8.0;
    double length = 1.0;
    for (const double step : {1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0})
      if (step <= aim) length = step;
    const double x = least_.x;
    const double y = -least_.y + margin + 8.0 * unit_;
    put("<path d=\"M{:.2f} {:.2f}h{:.2f}\" stroke=\"{}\" stroke-width=\"{:.3f}\"/>\n", x, y, length,
        hex(palette::text), 2.0 * unit_);
    put("<text x=\"{:.2f}\" y=\"{:.2f}\" font-size=\"{:.3f}\" fill=\"{}\">{} m</text>\n",
        x + length + 4.0 * unit_, y + 4.0 * unit_, 12.0 * unit_, hex(palette::text), length);
  }

  void drawMark(const PlanMark& mark) {
    if (!std::isfinite(mark.position.x) || !std::isfinite(mark.position.y)) return;
    const std::string_view color = mark.severity == Severity::violation ? "#B3261E"
                                   : mark.severity == Severity::warning ? "#A15C00"
                                                                        : "#1546B8";
    put("<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{:.3f}\" fill=\"{}\" stroke=\"#FFFFFF\" "
        "stroke-width=\"{:.3f}\"/>\n",
        mark.position.x, -mark.position.y, 9.0 * unit_, color, 1.2 * unit_);
    put("<text x=\"{:.2f}\" y=\"{:.2f}\" font-size=\"{:.3f}\" fill=\"#FFFFFF\" "
        "text-anchor=\"middle\">{}</text>\n",
        mark.position.x, -mark.position.y + 3.4 * unit_, (mark.number < 100 ? 10.0 : 7.5) * unit_,
        mark.number);
  }

  const Building& building_;
  double level_;
  const PlanOptions& options_;
  std::map<std::string, const Place*> places_;
  Point least_ = {1e300, 1e300};
  Point most_ = {-1e300, -1e300};
  double unit_ = 1.0;
  std::string text_;
};

}  // namespace

std::string floorPlanSvg(const Building& building, double level, const PlanOptions& options) {
  return PlanWriter(building, level, options).write();
}

}  // namespace orivanta::importer
