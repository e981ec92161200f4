#include "Source/Distance.hpp"

#include <cmath>

#include "Source/Node.hpp"

namespace orivanta {

double getEuclideanDistance(const Node& node, const Node& destination) {
  const double dx = node.x - destination.x;
  const double dy = node.y - destination.y;
  const double dz = node.z - destination.z;
  return std::sqrt(dx * dx + dy * dy + dz * dz);
}

std::optional<double> getShortestEuclideanDistance(const Node& node, const NodeList& destinations) {
  std::optional<double> running;
  for (const auto& destination : destinations) {
    const double distance = getEuclideanDistance(node, *destination);
    if (!running || *running < distance) running = distance;
  }
  return running;
}

}  // namespace orivanta
