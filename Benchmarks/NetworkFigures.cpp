#include "Benchmarks/NetworkFigures.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <queue>
#include <utility>

namespace orivanta::benchmarks {

PlainNetwork plainNetwork(const importer::Network& network) {
  PlainNetwork plain;
  for (const importer::Node& node : network.nodes)
    plain.nodes.push_back({node.id, node.position, fmt::format("{:g}", node.level)});
  plain.neighbors.resize(plain.nodes.size());
  for (const importer::Edge& edge : network.edges) {
    plain.neighbors[edge.from].push_back(edge.to);
    if (!edge.oneWay) plain.neighbors[edge.to].push_back(edge.from);
  }
  plain.edges = network.edges.size();
  return plain;
}

std::vector<double> lengthsFrom(const PlainNetwork& network,
                                const std::vector<std::size_t>& starts) {
  std::vector<double> lengths(network.nodes.size(), unknownLength);
  using Entry = std::pair<double, std::size_t>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  for (const std::size_t start : starts) open.emplace(lengths[start] = 0.0, start);
  while (!open.empty()) {
    const auto [length, node] = open.top();
    open.pop();
    if (length > lengths[node]) continue;
    for (const std::size_t next : network.neighbors[node]) {
      const double sum =
          length + package::distance(network.nodes[node].position, network.nodes[next].position);
      if (sum < lengths[next]) open.emplace(lengths[next] = sum, next);
    }
  }
  return lengths;
}

double quantile(std::vector<double> values, double share) {
  if (values.empty()) return 0.0;
  std::sort(values.begin(), values.end());
  return values[std::min(values.size() - 1,
                         static_cast<std::size_t>(share * static_cast<double>(values.size())))];
}

std::string share(std::size_t part, std::size_t whole) {
  return fmt::format(
      "{} of {} ({:.2f} %)", part, whole,
      whole == 0 ? 100.0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole));
}

}  // namespace orivanta::benchmarks
