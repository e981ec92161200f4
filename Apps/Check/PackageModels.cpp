#include <fmt/format.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "Apps/Check/PackageFiles.hpp"
#include "Platform/Scene/Obj/Model.hpp"

namespace orivanta::check {

namespace json = boost::json;
namespace obj = scene::obj;

namespace {

constexpr double farMeters = 2.0;
constexpr double farShare = 0.02;  // of the floor's diagonal, if the unit is not known

struct Box {
  Point least{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  Point most{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  void add(Point point) {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  double distanceTo(Point point) const {
    return std::hypot(std::max({least.x - point.x, 0.0, point.x - most.x}),
                      std::max({least.y - point.y, 0.0, point.y - most.y}));
  }
};

// A model seen from above.
class Plan {
 public:
  explicit Plan(const obj::Model& model) : model_(model) {
    for (const obj::Group& group : model.groups) {
      groups_.emplace(group.material.name, &group);
      for (const std::uint32_t index : group.indices) box_.add(pointAt(index));
    }
  }

  const obj::Group* group(std::string_view material) const {
    const auto found = groups_.find(material);
    return found == groups_.end() ? nullptr : found->second;
  }

  double diagonal() const { return package::distance(box_.least, box_.most); }

  Box boxOf(const obj::Group& group) const {
    Box box;
    for (const std::uint32_t index : group.indices) box.add(pointAt(index));
    return box;
  }

  // Returns the distance, or any smaller value than `enough`.
  double distanceTo(const obj::Group& group, const Box& box, Point point, double enough) const {
    if (box.distanceTo(point) > enough) return box.distanceTo(point);
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t first = 0; first + 2 < group.indices.size() && least > enough; first += 3)
      least = std::min(least, distanceToTriangle(group, first, point));
    return least;
  }

 private:
  Point pointAt(std::uint32_t index) const {
    const auto& position = model_.vertices[index].position;
    return {position[0], position[1]};
  }

  double distanceToTriangle(const obj::Group& group, std::size_t first, Point point) const {
    const package::Outline corners = {pointAt(group.indices[first]),
                                      pointAt(group.indices[first + 1]),
                                      pointAt(group.indices[first + 2])};
    if (package::contains(corners, point)) return 0.0;
    return package::distanceToBorder(corners, point);
  }

  const obj::Model& model_;
  std::unordered_map<std::string_view, const obj::Group*> groups_;
  Box box_;
};

class FloorCheck {
 public:
  FloorCheck(const PackageRecords& records, const Record& map, Findings& findings)
      : records_(records), map_(map), findings_(findings) {}

  void check(const std::filesystem::path& file, const std::vector<const Record*>& polygons) {
    const auto model = obj::readModel(file);
    if (!model) return addBroken(file, model.error().description);
    if (model->groups.empty()) return addBroken(file, "it has no faces");
    if (model->skippedFaces > 0) addSkipped(file, model->skippedFaces);
    const Plan plan(*model);
    for (const Record* polygon : polygons) checkPolygon(plan, *polygon);
  }

 private:
  void addBroken(const std::filesystem::path& file, const std::string& reason) {
    Finding finding = records_.findingAbout(map_, Severity::violation, "broken-model", "scene");
    finding.message = fmt::format("The model {} cannot be read: {}.", name(file), reason);
    finding.effect = "The floor is not shown, and nothing on it can be tapped.";
    finding.advice = "Export it again as Wavefront OBJ with faces (lines that begin with \"f\").";
    findings_.add(std::move(finding));
  }

  void addSkipped(const std::filesystem::path& file, std::size_t count) {
    Finding finding = records_.findingAbout(map_, Severity::warning, "damaged-model", "scene");
    finding.message =
        fmt::format("{} of the model {} {} unreadable or name vertices that do not exist.",
                    count == 1 ? "One face" : fmt::format("{} faces", count), name(file),
                    count == 1 ? "is" : "are");
    finding.effect = "They are not drawn.";
    finding.advice = "Export the model again.";
    findings_.add(std::move(finding));
  }

  void checkPolygon(const Plan& plan, const Record& polygon) {
    const obj::Group* group = plan.group(polygon.text("id").value_or(""));
    if (group == nullptr) return addWithoutMaterial(polygon);
    const Box box = plan.boxOf(*group);
    for (const json::value& element : elementsOf(polygon, "entrances")) {
      const auto id = identifierIn(element, "id");
      const Record* entrance = id ? records_.find(RecordKind::node, *id) : nullptr;
      if (entrance == nullptr || !entrance->kept || entrance->text("map") != polygon.text("map"))
        continue;
      const Finding place = records_.findingAbout(*entrance, Severity::warning, "");
      const double distance = plan.distanceTo(*group, box, *place.position, tolerance(plan));
      if (distance > tolerance(plan)) addFar(polygon, *entrance, distance);
    }
  }

  void addWithoutMaterial(const Record& polygon) {
    Finding finding =
        records_.findingAbout(polygon, Severity::warning, "polygon-without-material", "id");
    finding.message =
        fmt::format("The model of the floor has no material \"{}\".", polygon.label());
    finding.effect = "The polygon cannot be tapped or highlighted.";
    finding.advice = fmt::format(
        "In the model, write \"usemtl {}\" before the faces of this area: the name of the material "
        "is the identifier of the polygon.",
        polygon.label());
    findings_.add(std::move(finding));
  }

  void addFar(const Record& polygon, const Record& entrance, double distance) {
    Finding finding =
        records_.findingAbout(polygon, Severity::warning, "entrance-far-away", "entrances");
    finding.position = records_.findingAbout(entrance, Severity::warning, "").position;
    const auto unit = unitsPerMeter();
    finding.message =
        fmt::format("The entrance \"{}\" is {:.1f} {} away from the area of the polygon.",
                    entrance.label(), distance / unit.value_or(1.0), unit ? "m" : "units");
    finding.effect = "Routes end beside the place, and instructions name the wrong surroundings.";
    finding.advice = "Correct \"x\" and \"y\" of the node, or the entrance.";
    findings_.add(std::move(finding));
  }

  double tolerance(const Plan& plan) const {
    const auto unit = unitsPerMeter();
    return unit ? farMeters * *unit : farShare * plan.diagonal();
  }

  std::optional<double> unitsPerMeter() const {
    const auto& venue = records_[RecordKind::venue].records;
    const auto unit = venue.empty() ? std::nullopt : venue.front().numberIn("unitsPerMetre");
    return unit && *unit > 0.0 ? unit : std::nullopt;
  }

  std::string name(const std::filesystem::path& file) const { return file.filename().string(); }

  const PackageRecords& records_;
  const Record& map_;
  Findings& findings_;
};

}  // namespace

void checkModels(const PackageRecords& records, Findings& findings) {
  std::unordered_map<std::string_view, std::vector<const Record*>> polygonsByMap;
  for (const Record& polygon : records[RecordKind::polygon].records)
    if (polygon.kept) polygonsByMap[*polygon.text("map")].push_back(&polygon);
  for (const Record& map : records[RecordKind::map].records)
    if (const auto file = map.kept ? modelOf(records, map) : std::nullopt)
      FloorCheck(records, map, findings).check(*file, polygonsByMap[*map.text("id")]);
}

}  // namespace orivanta::check
