#include "Apps/Import/Connectors/Boarding.hpp"

#include <algorithm>
#include <functional>
#include <iterator>

#include "Apps/Import/Connectors/StepEdges.hpp"

namespace orivanta::importer {

namespace {

Contacts chosenFrom(const Contacts& contacts, const std::function<bool(const Contact&)>& choose) {
  Contacts chosen;
  std::copy_if(contacts.begin(), contacts.end(), std::back_inserter(chosen), choose);
  return chosen;
}

}  // namespace

Contacts doorsOf(const Piece& piece, const Surroundings& surroundings, bool anywhere) {
  Contacts contacts;
  if (piece.area == nullptr) return contacts;
  for (const Door* door : surroundings.doorsOf(*piece.area))
    if (door->level == piece.level &&
        (anywhere || (door->kind != DoorKind::emergency && door->areas.size() >= 2)))
      contacts.push_back(contactAt(piece, *door));
  return contacts;
}

Contacts boardable(const Piece& piece, const Surroundings& surroundings) {
  Contacts contacts = doorsOf(piece, surroundings, false);
  if (!contacts.empty()) return contacts;
  contacts = contactsOf(piece, surroundings.space(piece.level));
  if (contacts.empty()) return doorsOf(piece, surroundings, true);
  if (piece.kind == ConnectorKind::elevator) return contacts;
  Contacts best = chosenFrom(
      contacts, [&](const Contact& contact) { return stepsAt(piece, contact.side).has_value(); });
  for (Contact& contact : best) contact.steps = true;
  if (best.empty())
    best = chosenFrom(contacts, [](const Contact& contact) { return isShort(contact.side); });
  return best.empty() ? contacts : best;
}

std::optional<Point> endWithSteps(const Piece& piece, const Contacts& contacts) {
  if (contacts.size() == 1 && contacts.front().steps) return contacts.front().position;
  const auto side = contacts.empty() ? onlySideWithSteps(piece) : std::nullopt;
  return side ? stepsAt(piece, *side) : std::nullopt;
}

std::optional<std::pair<Contact, Contact>> bestPair(const Contacts& first, const Contacts& second) {
  std::optional<std::pair<Contact, Contact>> best;
  double bestScore = 0.0;
  for (const Contact& a : first)
    for (const Contact& b : second) {
      if (a.side == b.side) continue;
      const double score = std::min(a.length, b.length) * (a.side == opposite(b.side) ? 10.0 : 1.0);
      if (score <= bestScore) continue;
      bestScore = score;
      best = {a, b};
    }
  return best;
}

}  // namespace orivanta::importer
