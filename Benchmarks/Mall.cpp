#include "Benchmarks/Mall.hpp"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::benchmarks {

namespace {

constexpr double corridorWidth = 10.0;  // between neighboring crossings
constexpr double floorHeight = 5.0;
constexpr double shareOfBlocks = 0.1;  // fraction of the crossings that are missing
constexpr int shaftSpacing = 16;       // crossings between shafts

class MallBuilder {
 public:
  MallBuilder(std::size_t nodeCount, double jitter, std::uint32_t seed)
      : random_(seed),
        jitter_(-jitter * corridorWidth, jitter * corridorWidth),
        floorCount_(std::clamp(static_cast<int>(nodeCount / 2500), 3, 12)) {
    const double perFloor = static_cast<double>(nodeCount) / floorCount_;
    side_ = static_cast<int>(std::lround(std::sqrt(perFloor / (2.0 * (1.0 - shareOfBlocks)))));
  }

  Mall build() {
    for (int floor = 0; floor < floorCount_; ++floor) addFloor(floor);
    for (int row = shaftSpacing / 4; row < side_; row += shaftSpacing)
      for (int column = shaftSpacing / 4; column < side_; column += shaftSpacing)
        addShaft(column, row);
    Mall mall;
    for (const auto& entry : edges_) mall.nodes.push_back(entry.first);
    std::shuffle(mall.nodes.begin(), mall.nodes.end(), random_);
    mall.graph = std::make_shared<NavigationGraph>(Collection<Node>{}, Collection<Vortex>{}, false);
    mall.graph->setGraph(std::move(edges_));
    return mall;
  }

 private:
  // Nodes are created in an order that does not depend on their positions.
  void addFloor(int floor) {
    std::vector<std::pair<int, int>> places;
    for (int row = 0; row < side_; ++row)
      for (int column = 0; column < side_; ++column)
        if (!isBlock_(random_) || isShaft(column, row)) places.emplace_back(column, row);
    std::shuffle(places.begin(), places.end(), random_);
    const auto map = makeMap(floor);
    crossings_.emplace_back(std::size_t(side_) * std::size_t(side_));
    for (const auto& [column, row] : places) {
      crossing(floor, column, row) = addNode(map, corridorWidth * column, corridorWidth * row);
      const double reach = corridorWidth * 0.3;
      shops_.emplace_back(crossing(floor, column, row), addNode(map, corridorWidth * column + reach,
                                                                corridorWidth * row + reach));
    }
    for (const auto& [column, row] : places) {
      if (column + 1 < side_) join(crossing(floor, column, row), crossing(floor, column + 1, row));
      if (row + 1 < side_) join(crossing(floor, column, row), crossing(floor, column, row + 1));
    }
    for (const auto& [corridor, shop] : shops_) join(corridor, shop);
    shops_.clear();
  }

  void addShaft(int column, int row) {
    auto lift = Vortex::make(*RawData::parse(R"({"id": "l", "name": "Lift", "type": "lift"})"));
    lift->constantWeight = 20.0;
    lift->multiplierWeight = 2.0;
    for (int floor = 0; floor < floorCount_; ++floor)
      lift->nodes.push_back(crossing(floor, column, row));
    for (const auto& from : lift->nodes)
      for (const auto& to : lift->nodes) edges_[from].emplace_back(*from, to, lift);
  }

  std::shared_ptr<Map> makeMap(int floor) {
    auto map = Map::make(*RawData::parse(R"({"id": "floor"})"));
    map->elevation = floorHeight * floor;
    return map;
  }

  std::shared_ptr<Node> addNode(const std::shared_ptr<Map>& map, double x, double y) {
    auto node = test::makeNode(x + jitter_(random_), y + jitter_(random_), map->elevation);
    node->map = map;
    edges_.insert({node, {}});
    return node;
  }

  void join(const std::shared_ptr<Node>& left, const std::shared_ptr<Node>& right) {
    if (!left || !right) return;
    edges_[left].emplace_back(*left, right);
    edges_[right].emplace_back(*right, left);
  }

  static bool isShaft(int column, int row) {
    return column % shaftSpacing == shaftSpacing / 4 && row % shaftSpacing == shaftSpacing / 4;
  }

  std::shared_ptr<Node>& crossing(int floor, int column, int row) {
    return crossings_[std::size_t(floor)]
                     [std::size_t(row) * std::size_t(side_) + std::size_t(column)];
  }

  std::mt19937 random_;
  std::uniform_real_distribution<double> jitter_;
  std::bernoulli_distribution isBlock_{shareOfBlocks};
  int floorCount_;
  int side_;
  std::vector<NodeList> crossings_;
  std::vector<std::pair<std::shared_ptr<Node>, std::shared_ptr<Node>>> shops_;
  NavigationGraph::Adjacency edges_;
};

}  // namespace

Mall makeMall(std::size_t nodeCount, double jitter, std::uint32_t seed) {
  return MallBuilder(nodeCount, jitter, seed).build();
}

}  // namespace orivanta::benchmarks
