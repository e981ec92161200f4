#include "Benchmarks/MallJson.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "Benchmarks/Mall.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::benchmarks {

namespace {

using Texts = std::vector<std::string>;

// Gives records identifiers as long as those of real venues.
class Identifiers {
 public:
  const std::string& of(const void* record) {
    std::string& id = identifiers_[record];
    if (id.empty()) {
      const auto number = identifiers_.size() * 0x9E3779B97F4A7C15U;
      id = fmt::format("{:016x}{:016x}", number, number * 31U);
    }
    return id;
  }

 private:
  std::unordered_map<const void*, std::string> identifiers_;
};

// Orders nodes by floor and row, because in the lists of real venues most neighbors are close
// together.
bool isListedBefore(const std::shared_ptr<Node>& left, const std::shared_ptr<Node>& right) {
  constexpr double rowHeight = 10.0;
  const auto place = [](const Node& node) {
    return std::tuple(node.map->elevation, std::floor(node.y / rowHeight), node.x);
  };
  return place(*left) < place(*right);
}

std::string arrayOf(const Texts& elements) {
  return fmt::format("[\n{}\n]\n", fmt::join(elements, ",\n"));
}

}  // namespace

std::map<std::string, std::string> mallJson(std::size_t nodeCount) {
  Mall mall = makeMall(nodeCount, 0.2, 1);
  std::sort(mall.nodes.begin(), mall.nodes.end(), isListedBefore);
  Identifiers ids;
  std::map<const Map*, std::string> maps;
  std::map<const Vortex*, std::string> vortices;
  Texts nodes, locations, polygons;
  for (const auto& node : mall.nodes) {
    Texts paths;
    for (const Edge& edge : (*mall.graph)[*node]) {
      if (!edge.vortex())
        paths.push_back(fmt::format(R"({{"node":"{}"}})", ids.of(edge.node().get())));
      else if (!vortices.contains(edge.vortex().get())) {
        Texts stops;
        for (const auto& stop : edge.vortex()->nodes)
          stops.push_back(fmt::format("\"{}\"", ids.of(stop.get())));
        vortices[edge.vortex().get()] = fmt::format(
            R"({{"id":"{}","name":"Lift","type":"elevator","weight":2.0,"nodes":[{}]}})",
            ids.of(edge.vortex().get()), fmt::join(stops, ","));
      }
    }
    const std::string& map = ids.of(node->map.get());
    maps[node->map.get()] =
        fmt::format(R"({{"id":"{}","elevation":{}}})", map, node->map->elevation);
    nodes.push_back(
        fmt::format(R"({{"id":"{}","map":"{}","x":{:.3f},"y":{:.3f},"z":0.5,"paths":[{}]}})",
                    ids.of(node.get()), map, node->x, node->y, fmt::join(paths, ",")));
    if (nodes.size() % 4 != 0) continue;
    const std::string place = fmt::format("place-{}", nodes.size());
    polygons.push_back(fmt::format(R"({{"id":"{}","map":"{}","entrances":[{{"id":"{}"}}]}})", place,
                                   map, ids.of(node.get())));
    locations.push_back(fmt::format(
        R"({{"id":"at-{0}","name":"Shop {0}","type":"tenant","categories":["shops"],)"
        R"("nodes":[{{"node":"{1}","map":"{2}"}}],"polygons":[{{"id":"{0}","map":"{2}"}}]}})",
        place, ids.of(node.get()), map));
  }
  Texts mapTexts, vortexTexts;
  for (const auto& entry : maps) mapTexts.push_back(entry.second);
  for (const auto& entry : vortices) vortexTexts.push_back(entry.second);
  return {{"venue", R"({"id":"mall","slug":"mall","name":"Mall"})"},
          {"map", arrayOf(mapTexts)},
          {"category", R"([{"id":"shops","name":"Shops"}])"},
          {"location", arrayOf(locations)},
          {"polygon", arrayOf(polygons)},
          {"vortex", arrayOf(vortexTexts)},
          {"node", arrayOf(nodes)}};
}

}  // namespace orivanta::benchmarks
