#include "Benchmarks/NetworkDrawing.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>

#include "Apps/Import/Doors/WalkableSpace.hpp"

namespace orivanta::benchmarks {

namespace {

using importer::Area;
using importer::NodeKind;
using importer::Point;
using importer::Shape;

class Drawing {
 public:
  Drawing(std::ostream& out, const Shape& all) : out_(out) {
    for (const importer::Polygon& polygon : all)
      for (const Point point : polygon.outer) {
        low_ = {std::min(low_.x, point.x), std::min(low_.y, point.y)};
        high_ = {std::max(high_.x, point.x), std::max(high_.y, point.y)};
      }
    scale_ = std::min(20.0, 4000.0 / std::max({high_.x - low_.x, high_.y - low_.y, 1.0}));
    out_ << fmt::format("<svg xmlns='http://www.w3.org/2000/svg' width='{:.0f}' height='{:.0f}'>\n",
                        (high_.x - low_.x) * scale_, (high_.y - low_.y) * scale_)
         << "<rect width='100%' height='100%' fill='#fff'/>\n";
  }
  ~Drawing() { out_ << "</svg>\n"; }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  void shape(const Shape& shape, const char* fill) {
    out_ << "<path fill-rule='evenodd' stroke='#555' stroke-width='1' fill='" << fill << "' d='";
    for (const importer::Polygon& polygon : shape) {
      ring(polygon.outer);
      for (const package::Outline& hole : polygon.holes) ring(hole);
    }
    out_ << "'/>\n";
  }

  void line(Point a, Point b, const char* color) {
    out_ << fmt::format("<path stroke='{}' stroke-width='2' d='M{} L{}'/>\n", color, text(a),
                        text(b));
  }

  void dot(Point at, const char* color, double radius) {
    out_ << fmt::format("<circle cx='{:.1f}' cy='{:.1f}' r='{}' fill='{}'/>\n",
                        (at.x - low_.x) * scale_, (high_.y - at.y) * scale_, radius, color);
  }

 private:
  std::string text(Point point) const {
    return fmt::format("{:.1f} {:.1f}", (point.x - low_.x) * scale_, (high_.y - point.y) * scale_);
  }
  void ring(const package::Outline& outline) {
    const char* command = "M";
    for (const Point point : outline) {
      out_ << command << text(point);
      command = " L";
    }
    out_ << "Z";
  }

  std::ostream& out_;
  Point low_{1e9, 1e9};
  Point high_{-1e9, -1e9};
  double scale_ = 1.0;
};

const char* fillOf(const Area& area) {
  switch (area.kind) {
    case importer::AreaKind::room:
      return "#f6e3c3";
    case importer::AreaKind::stairs:
    case importer::AreaKind::escalator:
      return "#d5c3ea";
    case importer::AreaKind::elevator:
      return "#b9a3dd";
    case importer::AreaKind::opening:
      return "#eee";
    case importer::AreaKind::obstacle:
    case importer::AreaKind::wall:
      return "#999";
    case importer::AreaKind::unknown:
      return "#fbd0d0";
    default:
      return "#fff";
  }
}

}  // namespace

void drawNetwork(const importer::Building& building, double level,
                 const std::filesystem::path& file) {
  std::ofstream out(file);
  Shape all = importer::walkableSpace(building, level);
  const Shape space = all;
  for (const Area& area : building.areas)
    if (area.level == level) all = importer::joined(std::move(all), area.shape);
  Drawing drawing(out, all);
  for (const Area& area : building.areas)
    if (area.level == level) drawing.shape(area.shape, fillOf(area));
  drawing.shape(space, "#cfe8d5");
  const auto& [nodes, edges] = building.network;
  for (const importer::Edge& edge : edges) {
    if (nodes[edge.from].level != level) continue;
    const bool stub =
        nodes[edge.from].kind != NodeKind::way || nodes[edge.to].kind != NodeKind::way;
    drawing.line(nodes[edge.from].position, nodes[edge.to].position, stub ? "#3b7dd8" : "#d2331c");
  }
  for (const importer::Node& node : nodes) {
    if (node.level != level) continue;
    const char* color = node.kind == NodeKind::door       ? "#0a0"
                        : node.kind == NodeKind::boarding ? "#a0a"
                        : node.kind == NodeKind::spot     ? "#f90"
                        : node.kind == NodeKind::inside   ? "#26c"
                                                          : "#d2331c";
    drawing.dot(node.position, color, node.kind == NodeKind::way ? 2.5 : 4.0);
  }
}

}  // namespace orivanta::benchmarks
