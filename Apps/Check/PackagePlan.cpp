#include "Apps/Check/PackagePlan.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <set>
#include <utility>

#include "Apps/Check/PackageFiles.hpp"
#include "Apps/Import/Write/FloorPlan.hpp"
#include "Apps/Package/SvgPlan.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::check {

namespace obj = scene::obj;
using importer::Report;
using importer::ReportPlan;

namespace {

// A corner in hundredths of a unit, so that corners of neighboring faces are equal.
using Corner = std::pair<std::int64_t, std::int64_t>;
using Triangle = std::array<Corner, 3>;

Corner cornerOf(const obj::Vertex& vertex) {
  // No model of a building is larger, and llround must not overflow.
  const auto rounded = [](float value) {
    return std::llround(std::clamp(static_cast<double>(value), -1e12, 1e12) * 100.0);
  };
  return {rounded(vertex.position[0]), rounded(vertex.position[1])};
}

bool facesUp(const Triangle& corners) {
  const auto x = [&](std::size_t index) { return static_cast<double>(corners[index].first); };
  const auto y = [&](std::size_t index) { return static_cast<double>(corners[index].second); };
  return (x(1) - x(0)) * (y(2) - y(0)) - (y(1) - y(0)) * (x(2) - x(0)) > 0.0;
}

std::string colorOf(const obj::Material& material) {
  const auto part = [&](std::size_t index) {
    return static_cast<double>(std::clamp(material.diffuse[index], 0.0F, 1.0F));
  };
  return package::hex({part(0), part(1), part(2)});
}

package::Point pointOf(const Corner& corner) {
  return {static_cast<double>(corner.first) / 100.0, static_cast<double>(corner.second) / 100.0};
}

class FloorDrawing {
 public:
  explicit FloorDrawing(const obj::Model& model) : model_(model) {}

  void draw(const obj::Group& group) {
    std::set<std::pair<Corner, Corner>> edges;  // without an edge in the other direction
    std::vector<package::Outline> triangles;
    for (std::size_t first = 0; first + 2 < group.indices.size(); first += 3) {
      const Triangle corners = {cornerOf(model_.vertices[group.indices[first]]),
                                cornerOf(model_.vertices[group.indices[first + 1]]),
                                cornerOf(model_.vertices[group.indices[first + 2]])};
      if (!facesUp(corners)) continue;
      triangles.push_back({pointOf(corners[0]), pointOf(corners[1]), pointOf(corners[2])});
      for (std::size_t index = 0; index < 3; ++index) {
        plan_.reach(triangles.back()[index]);
        addEdge(edges, corners[index], corners[(index + 1) % 3]);
      }
    }
    if (triangles.empty()) return;
    const std::string color = colorOf(group.material);
    plan_.add(fmt::format("<g><title>{}</title>",
                          package::markup(foundation::label(group.material.name))));
    plan_.shape(triangles,
                fmt::format("fill=\"{0}\" stroke=\"{0}\" style=\"fill-rule:nonzero\"", color));
    std::vector<package::Outline> lines;
    lines.reserve(edges.size());
    for (const auto& [from, to] : edges) lines.push_back({pointOf(from), pointOf(to)});
    plan_.shape(lines, "fill=\"none\" stroke=\"#52606D\"");
    plan_.add("</g>\n");
  }

  // Returns an empty text if there is nothing to draw.
  std::string svg(const std::vector<importer::Finding>& findings, std::string_view map) {
    for (const importer::Finding& finding : findings)
      if (finding.map == map && finding.position) plan_.reach(*finding.position);
    if (plan_.isEmpty()) return {};
    const double pixel = plan_.pixel(0.0);
    for (std::size_t index = 0; index < findings.size(); ++index)
      if (findings[index].map == map && findings[index].position)
        plan_.mark(index + 1, *findings[index].position,
                   importer::colorOf(findings[index].severity), pixel);
    return plan_.finish(30.0 * pixel, 0.0, fmt::format("stroke-width=\"{:.3f}\"", 0.7 * pixel));
  }

 private:
  static void addEdge(std::set<std::pair<Corner, Corner>>& edges, Corner from, Corner to) {
    if (edges.erase({to, from}) == 0) edges.insert({from, to});
  }

  const obj::Model& model_;
  package::SvgPlan plan_;
};

std::optional<ReportPlan> planOf(const PackageRecords& records, const Record& map,
                                 const std::vector<importer::Finding>& findings) {
  const auto file = modelOf(records, map);
  const auto model = file ? obj::readModel(*file) : foundation::failure("check", 1, "no model");
  if (!model || model->groups.empty()) return std::nullopt;
  FloorDrawing drawing(*model);
  for (const obj::Group& group : model->groups) drawing.draw(group);
  std::string svg = drawing.svg(findings, map.text("id").value_or(""));
  if (svg.empty()) return std::nullopt;
  const std::string name(map.text("name").value_or(""));
  return ReportPlan{name.empty() ? map.label() : name, std::move(svg)};
}

}  // namespace

Report packageReport(const std::filesystem::path& folder, const importer::Findings& findings) {
  Findings ignored;
  const PackageRecords records(folder, ignored);
  Report report;
  report.source = folder.string();
  report.title = report.source;
  for (const Record& venue : records[RecordKind::venue].records)
    report.title = venue.text("name").value_or(report.source);
  report.summary = summaryOf(findings);
  report.findings = findings.sorted();
  std::vector<const Record*> maps;
  for (const Record& map : records[RecordKind::map].records) maps.push_back(&map);
  std::stable_sort(maps.begin(), maps.end(), [](const Record* first, const Record* second) {
    return first->numberIn("elevation").value_or(0) > second->numberIn("elevation").value_or(0);
  });
  for (const Record* map : maps)
    if (auto plan = planOf(records, *map, report.findings))
      report.plans.push_back(std::move(*plan));
  return report;
}

}  // namespace orivanta::check
