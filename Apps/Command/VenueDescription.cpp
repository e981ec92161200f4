#include "Apps/Command/VenueDescription.hpp"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::command {

namespace {

bool hasParent(const Category& category) {
  return std::any_of(category.parents.begin(), category.parents.end(),
                     [](const auto& parent) { return !parent.expired(); });
}

std::vector<std::shared_ptr<Category>> distinctChildren(const Category& category) {
  std::vector<std::shared_ptr<Category>> children;
  std::unordered_set<const Category*> seen;
  for (const auto& link : category.children)
    if (auto child = link.lock(); child && seen.insert(child.get()).second)
      children.push_back(std::move(child));
  return children;
}

// Writes the lines of the categories below one root. It is not recursive, because the data
// determines the depth.
class CategoryWalk {
 public:
  void visit(const std::shared_ptr<Category>& root) {
    if (shown_.contains(root.get())) return;
    std::vector<CategoryLine> waiting{{root, 0, false}};
    while (!waiting.empty()) {
      CategoryLine line = std::move(waiting.back());
      waiting.pop_back();
      line.shownAbove = !shown_.insert(line.category.get()).second;
      if (!line.shownAbove) {
        const auto children = distinctChildren(*line.category);
        for (auto child = children.rbegin(); child != children.rend(); ++child)
          waiting.push_back({*child, line.depth + 1, false});
      }
      lines.push_back(std::move(line));
    }
  }

  std::vector<CategoryLine> lines;

 private:
  std::unordered_set<const Category*> shown_;
};

}  // namespace

std::vector<FloorSummary> floorSummaries(const Venue& venue) {
  std::vector<FloorSummary> floors;
  std::unordered_map<const Map*, std::size_t> places;
  for (auto& map : floorsFromTop(*venue.maps)) {
    places.emplace(map.get(), floors.size());
    floors.push_back({std::move(map)});
  }
  for (const auto& node : *venue.nodes) ++floors[places.at(node->map.get())].nodes;
  for (const auto& polygon : *venue.polygons) ++floors[places.at(polygon->map.get())].polygons;
  for (const auto& location : *venue.locations)
    for (const auto& map : floorsOf(*location)) ++floors[places.at(map.get())].locations;
  return floors;
}

std::vector<CategoryLine> categoryTree(const Venue& venue) {
  CategoryWalk walk;
  for (const auto& category : *venue.categories)
    if (!hasParent(*category)) walk.visit(category);
  for (const auto& category : *venue.categories) walk.visit(category);
  return std::move(walk.lines);
}

std::vector<ConnectorGroup> connectorGroups(const Venue& venue, bool accessibleOnly) {
  using Key = std::tuple<std::string, bool, std::vector<std::shared_ptr<Map>>>;
  std::vector<ConnectorGroup> groups;
  std::map<Key, std::size_t> places;
  for (const auto& connector : *venue.vortices) {
    if (accessibleOnly && !connector->accessible) continue;
    std::vector<std::shared_ptr<Map>> floors = floorsFromTop(connector->maps);
    const auto [place, isNew] =
        places.try_emplace({*connector->type, connector->accessible, floors}, groups.size());
    if (isNew) groups.push_back({*connector->type, std::move(floors), connector->accessible, {}});
    groups[place->second].connectors.push_back(connector);
  }
  std::stable_sort(groups.begin(), groups.end(),
                   [](const auto& left, const auto& right) { return left.type < right.type; });
  return groups;
}

std::size_t locationCount(const Category& category) {
  std::unordered_set<std::shared_ptr<Location>> locations;
  for (const auto& link : category.locations)
    if (auto location = link.lock()) locations.insert(std::move(location));
  return locations.size();
}

}  // namespace orivanta::command
