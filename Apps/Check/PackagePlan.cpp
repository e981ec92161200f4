#include "Apps/Check/PackagePlan.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <utility>

#include "Apps/Check/PackageFiles.hpp"
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

struct Extent {
  double left = std::numeric_limits<double>::infinity();
  double top = std::numeric_limits<double>::infinity();
  double right = -std::numeric_limits<double>::infinity();
  double bottom = -std::numeric_limits<double>::infinity();

  // y points down in SVG.
  void add(double x, double y) {
    left = std::min(left, x);
    right = std::max(right, x);
    top = std::min(top, -y);
    bottom = std::max(bottom, -y);
  }
  double size() const { return std::max({right - left, bottom - top, 1.0}); }
};

std::string attributeText(std::string_view text) {
  std::string result;
  for (const char character : foundation::label(text)) {
    if (character == '&') {
      result += "&amp;";
    } else if (character == '<') {
      result += "&lt;";
    } else if (character == '>') {
      result += "&gt;";
    } else {
      result += character;
    }
  }
  return result;
}

std::string colorOf(const obj::Material& material) {
  const auto part = [&](std::size_t index) {
    return static_cast<int>(std::lround(std::clamp(material.diffuse[index], 0.0F, 1.0F) * 255.0F));
  };
  return fmt::format("#{:02x}{:02x}{:02x}", part(0), part(1), part(2));
}

class FloorDrawing {
 public:
  explicit FloorDrawing(const obj::Model& model) : model_(model) {}

  void draw(const obj::Group& group) {
    std::set<std::pair<Corner, Corner>> edges;  // without an edge in the other direction
    std::string path;
    for (std::size_t first = 0; first + 2 < group.indices.size(); first += 3) {
      const Triangle corners = {cornerOf(model_.vertices[group.indices[first]]),
                                cornerOf(model_.vertices[group.indices[first + 1]]),
                                cornerOf(model_.vertices[group.indices[first + 2]])};
      if (!facesUp(corners)) continue;
      path += 'M';
      for (const Corner& corner : corners) path += pointText(corner);
      path += 'Z';
      for (std::size_t index = 0; index < 3; ++index)
        addEdge(edges, corners[index], corners[(index + 1) % 3]);
    }
    if (path.empty()) return;
    shapes_ += fmt::format("<g><title>{0}</title><path d=\"{1}\" fill=\"{2}\" stroke=\"{2}\"/>",
                           attributeText(group.material.name), path, colorOf(group.material));
    shapes_ += "<path d=\"";
    for (const auto& [from, to] : edges) shapes_ += 'M' + pointText(from) + pointText(to);
    shapes_ += "\" fill=\"none\" stroke=\"#52606d\"/></g>\n";
  }

  // Returns an empty text if there is nothing to draw.
  std::string svg(const std::vector<importer::Finding>& findings, std::string_view map) {
    const std::string marks = marksOf(findings, map);
    if (shapes_.empty() && marks.empty()) return {};
    const double margin = extent_.size() * 0.03;
    return fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"{:.2f} {:.2f} {:.2f} {:.2f}\" "
        "stroke-width=\"{:.3f}\" stroke-linejoin=\"round\">\n{}{}</svg>",
        extent_.left - margin, extent_.top - margin, extent_.right - extent_.left + 2 * margin,
        extent_.bottom - extent_.top + 2 * margin, extent_.size() / 1500.0, shapes_, marks);
  }

 private:
  static void addEdge(std::set<std::pair<Corner, Corner>>& edges, Corner from, Corner to) {
    if (edges.erase({to, from}) == 0) edges.insert({from, to});
  }

  std::string pointText(const Corner& corner) {
    const double x = static_cast<double>(corner.first) / 100.0;
    const double y = static_cast<double>(corner.second) / 100.0;
    extent_.add(x, y);
    return fmt::format("{},{} ", x, -y);
  }

  std::string marksOf(const std::vector<importer::Finding>& findings, std::string_view map) {
    static constexpr std::array<std::string_view, 3> colors = {"#3b5b8c", "#9a6700", "#b42318"};
    for (const auto& finding : findings)
      if (finding.map == map && finding.position)
        extent_.add(finding.position->x, finding.position->y);
    const double radius = extent_.size() / 90.0;
    std::string marks;
    for (std::size_t index = 0; index < findings.size(); ++index) {
      const auto& finding = findings[index];
      if (finding.map != map || !finding.position) continue;
      marks += fmt::format(
          "<a href=\"#finding-{0}\"><circle cx=\"{1:.2f}\" cy=\"{2:.2f}\" r=\"{3:.2f}\" "
          "fill=\"{4}\" stroke=\"#fff\"/><text x=\"{1:.2f}\" y=\"{2:.2f}\" dy=\".35em\" "
          "text-anchor=\"middle\" "
          "font-family=\"sans-serif\" font-size=\"{3:.2f}\" fill=\"#fff\">{0}</text></a>\n",
          index + 1, finding.position->x, -finding.position->y, radius,
          colors[static_cast<std::size_t>(finding.severity)]);
    }
    return marks;
  }

  const obj::Model& model_;
  Extent extent_;
  std::string shapes_;
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
