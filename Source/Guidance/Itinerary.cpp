#include "Source/Guidance/Itinerary.hpp"

namespace orivanta::guidance {

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
