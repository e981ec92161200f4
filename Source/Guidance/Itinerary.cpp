#include "Source/Guidance/Itinerary.hpp"

#include <algorithm>

namespace orivanta::guidance {

bool Itinerary::isUsable() const {
  const auto isLegUsable = [](const Leg& leg) {
    return !leg.nodes.empty() && std::count(leg.nodes.begin(), leg.nodes.end(), nullptr) == 0;
  };
  return !legs.empty() && std::all_of(legs.begin(), legs.end(), isLegUsable);
}

double Itinerary::meters() const {
  double sum = 0.0;
  for (const Leg& leg : legs) sum += leg.meters;
  return sum;
}

double Itinerary::seconds() const {
  double sum = 0.0;
  for (const Leg& leg : legs) sum += leg.seconds;
  return sum;
}

NodeList Itinerary::path() const {
  NodeList path;
  for (const Leg& leg : legs) {
    auto first = leg.nodes.begin();
    if (!path.empty() && first != leg.nodes.end() && *first == path.back()) ++first;
    path.insert(path.end(), first, leg.nodes.end());
  }
  return path;
}

}  // namespace orivanta::guidance
