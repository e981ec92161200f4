#include "Apps/Import/Write/FloorPlan.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string_view>

#include "Apps/Import/Geometry/InnerPoint.hpp"
#include "Apps/Import/Model/FloorModel.hpp"
#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Package/Palette.hpp"
#include "Apps/Package/SvgPlan.hpp"

namespace orivanta::importer {

namespace {

namespace palette = package::palette;
using package::Color;
using package::hex;

constexpr double margin = 2.0;  // meters around the drawing

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

class PlanWriter {
 public:
  PlanWriter(const Building& building, double level, const PlanOptions& options)
      : building_(building), level_(level), options_(options) {
    for (const Area& area : building.areas)
      if (area.level == level && !area.shape.empty()) {
        areas_.push_back(&area);
        if (!area.place.empty()) places_.emplace(area.place, nullptr);
      }
    for (const Place& place : building.places)
      if (const auto shown = places_.find(place.id); shown != places_.end()) shown->second = &place;
    measure();
    pixel_ = plan_.pixel(margin);
  }

  std::string write() {
    const Point least = plan_.least() - Point{margin, margin + 26.0 * pixel_};
    const Point most = plan_.most() + Point{margin, margin};
    plan_.shape({package::rectangle(least.x, least.y, most.x, most.y)},
                fmt::format("fill=\"{}\"", hex(palette::backdrop)));
    drawShapes();
    drawDoors();
    if (options_.network) drawNetwork();
    if (options_.names) drawNames();
    drawScaleBar();
    for (const PlanMark& mark : options_.marks)
      plan_.mark(mark.number, mark.position, colorOf(mark.severity), pixel_);
    return plan_.finish(margin, 26.0 * pixel_, "");
  }

 private:
  void measure() {
    for (const Storey& storey : building_.storeys)
      if (storey.ordinal == level_) reach(storey.footprint);
    for (const Area* area : areas_) reach(area->shape);
    for (const Node& node : building_.network.nodes)
      if (node.level == level_) plan_.reach(node.position);
    for (const PlanMark& mark : options_.marks) plan_.reach(mark.position);
  }

  void reach(const std::vector<Polygon>& shape) {
    for (const Polygon& polygon : shape)
      for (const Point point : polygon.outer) plan_.reach(point);
  }

  void drawRings(const std::vector<Polygon>& shape, std::string_view style) {
    std::vector<Outline> rings;
    for (const Polygon& polygon : shape) {
      rings.push_back(polygon.outer);
      rings.insert(rings.end(), polygon.holes.begin(), polygon.holes.end());
    }
    plan_.shape(rings, style);
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
      for (const Area* area : areas_) {
        if (area->kind != kind) continue;
        const Color fill = colorOf(*area, placeOf(*area));
        const bool walkable = kind == AreaKind::walkway || kind == AreaKind::unknown;
        const Color edge = package::mixed(fill, palette::text, walkable ? 0.2 : 0.55);
        drawRings(area->shape, fmt::format("fill=\"{}\" stroke=\"{}\" stroke-width=\"{:.3f}\"",
                                           hex(fill), hex(edge), (walkable ? 0.6 : 1.1) * pixel_));
      }
    for (const Line& line : building_.lines)
      if (line.kind == LineKind::wall &&
          std::find(line.levels.begin(), line.levels.end(), level_) != line.levels.end())
        plan_.line(line.points, stroke(palette::wall, 1.6));
  }

  // The width is in pixels.
  std::string stroke(Color color, double width) const {
    return fmt::format("stroke=\"{}\" stroke-width=\"{:.3f}\"", hex(color), width * pixel_);
  }

  void drawDoors() {
    for (const Door& door : building_.doors) {
      if (door.level != level_) continue;
      const bool outer = door.kind == DoorKind::entrance || door.kind == DoorKind::emergency;
      const Color color = outer ? package::color(0x14694A) : palette::text;
      plan_.disc(door.position, std::clamp(2.0 * pixel_, 0.15, 0.5),
                 fmt::format("fill=\"{}\" {}", hex(door.guessed ? palette::casing : color),
                             stroke(color, 0.6)));
    }
  }

  void drawNetwork() {
    const Network& network = building_.network;
    plan_.add(fmt::format("<g {}>\n", stroke(palette::route, 0.9)));
    for (const Edge& edge : network.edges) {
      const Node& from = network.nodes[edge.from];
      const Node& to = network.nodes[edge.to];
      if (from.level == level_ && to.level == level_) plan_.line({from.position, to.position}, "");
    }
    plan_.add("</g>\n");
    for (const Node& node : network.nodes)
      if (node.level == level_ && node.kind == NodeKind::boarding)
        plan_.disc(node.position, 2.4 * pixel_, fmt::format("fill=\"{}\"", hex(palette::pin)));
  }

  void drawNames() {
    plan_.add(fmt::format("<g fill=\"{}\" text-anchor=\"middle\">\n", hex(palette::text)));
    for (const Area* area : areas_) {
      const Place* place = placeOf(*area);
      if (place != nullptr && !place->names.generated && area->kind == AreaKind::room)
        drawName(place->names.name, *area);
    }
    plan_.add("</g>\n");
  }

  void drawName(const std::string& name, const Area& area) {
    const Point at = innerPoint(area.shape);
    double room = 0.0;
    for (const Polygon& polygon : area.shape)
      if (package::contains(polygon.outer, at)) room = package::distanceToBorder(polygon.outer, at);
    const double size = std::min(2.6 * room / std::max(columnsOf(name) * 0.55, 1.0), 12.0 * pixel_);
    if (size < 3.0 * pixel_ || size <= 0.0) return;
    plan_.text(at - Point{0.0, size * 0.35}, size, name, "");
  }

  // A round length of about a tenth of the width.
  void drawScaleBar() {
    const Point corner = plan_.least();
    const double aim = (plan_.most().x - corner.x) / 8.0;
    double length = 1.0;
    for (const double step : {1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0})
      if (step <= aim) length = step;
    const Point left = corner - Point{0.0, margin + 8.0 * pixel_};
    const Point right = left + Point{length, 0.0};
    plan_.line({left, right}, stroke(palette::text, 2.0));
    plan_.text(right + Point{4.0, -4.0} * pixel_, 12.0 * pixel_, fmt::format("{} m", length),
               fmt::format("fill=\"{}\"", hex(palette::text)));
  }

  const Building& building_;
  double level_;
  const PlanOptions& options_;
  std::vector<const Area*> areas_;              // of the storey
  std::map<std::string, const Place*> places_;  // of these areas
  package::SvgPlan plan_;
  double pixel_ = 1.0;
};

}  // namespace

std::string_view colorOf(Severity severity) {
  switch (severity) {
    case Severity::violation:
      return "#B3261E";
    case Severity::warning:
      return "#A15C00";
    case Severity::info:
      break;
  }
  return "#1546B8";
}

std::string floorPlanSvg(const Building& building, double level, const PlanOptions& options) {
  return PlanWriter(building, level, options).write();
}

}  // namespace orivanta::importer
