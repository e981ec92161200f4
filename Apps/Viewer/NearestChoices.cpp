#include "Apps/Viewer/NearestChoices.hpp"

#include <algorithm>

#include "Apps/Viewer/CategoryMatch.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::viewer {

namespace {

bool isElevator(const Vortex& connector) {
  return guidance::connectorKindOf(connector.type.value_or("")) == guidance::ConnectorKind::lift;
}

// Returns the nodes of the elevators that are not closed.
NodeList elevatorNodes(const Venue& venue, const guidance::Closures& closures) {
  NodeList nodes;
  for (const auto& connector : *venue.vortices)
    if (isElevator(*connector) && !closures.contains(connector->id.value_or("")))
      nodes.insert(nodes.end(), connector->nodes.begin(), connector->nodes.end());
  return nodes;
}

}  // namespace

NearestChoice nearestOf(const std::shared_ptr<Category>& category,
                        const guidance::InterfaceTexts& texts) {
  return {texts.text("interface.nearest", {{"category", texts.name(category->name.value_or(""))}}),
          category};
}

guidance::Stop stopFor(const NearestChoice& choice, const Venue& venue,
                       const guidance::Closures& closures) {
  if (choice.category) return choice.category;
  return elevatorNodes(venue, closures);
}

std::vector<NearestChoice> nearestChoices(const Venue& venue, const Location& place,
                                          const guidance::Closures& closures,
                                          const guidance::InterfaceTexts& texts) {
  std::vector<NearestChoice> choices;
  const auto offer = [&](const char* titleKey, const char* namesKey) {
    const auto& own = place.categories;
    const auto category = categoryOfKind(venue, namesKey, texts);
    if (category && std::find(own.begin(), own.end(), category) == own.end())
      choices.push_back({texts.text(titleKey), category});
  };
  offer("interface.nearest.toilet", "interface.names.toilet");
  offer("interface.nearest.exit", "interface.names.exit");
  if (!elevatorNodes(venue, closures).empty())
    choices.push_back({texts.text("interface.nearest.elevator"), nullptr});
  return choices;
}

}  // namespace orivanta::viewer
